// SPDX-License-Identifier: MIT
#pragma once

#include "View/StatusItemPlan.h"

#include <QColor>

namespace quor::helper {

class MenubarStackView;

/// Fills the stack with the elements of the plan, in place of those that it has. With `keepSymbol` its
/// symbol, which must be that of the plan, stays, and so nothing has to be painted anew for it.
void buildElements(
    MenubarStackView& stack, const StatusItemPlan& plan, const QColor& warningColor, bool keepSymbol);

} // namespace quor::helper
