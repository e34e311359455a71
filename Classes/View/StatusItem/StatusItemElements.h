// SPDX-License-Identifier: MIT
#pragma once

#include "View/StatusItem/StatusItemPlan.h"
#include "View/StatusItem/StatusItemStyle.h"

#include <QColor>

namespace quor::helper {

class MenubarStackView;

/// Makes the elements of the stack those of the plan. An element of the same kind stays and is given
/// what it shows now, so that a live one is painted anew only where it has changed. `warningColor` is
/// that of over-time.
void buildElements(MenubarStackView& stack, const StatusItemPlan& plan, const StatusItemStyle& style,
    const QColor& warningColor);

} // namespace quor::helper
