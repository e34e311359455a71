// SPDX-License-Identifier: MIT
#pragma once

#include "View/StatusItemPlan.h"
#include "View/StatusItemStyle.h"

#include <QColor>

namespace quor::helper {

class MenubarStackView;

/// Fills the stack with the elements of the plan, in place of those that it has. With `keepSymbol` its
/// symbol, which must be that of the plan, stays, and so nothing has to be painted anew for it.
/// `warningColor` is that of over-time.
void buildElements(MenubarStackView& stack, const StatusItemPlan& plan, const StatusItemStyle& style,
    const QColor& warningColor, bool keepSymbol);

} // namespace quor::helper
