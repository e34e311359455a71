// SPDX-License-Identifier: MIT
#pragma once

#include "View/StatusItem/MenubarClockView.h"
#include "View/StatusItem/MenubarProgressView.h"
#include "View/StatusItem/MenubarStackView.h"
#include "View/StatusItem/MenubarText.h"
#include "View/StatusItem/StatusItemPlan.h"
#include "View/StatusItem/StatusItemStyle.h"

#include <QColor>

namespace quor::helper {

/// The drawing objects of the status item, arranged as the last plan says. Main thread only.
class StatusItemElements final {
public:
    /// `edgeInset` is the room left and right of the elements, in device-independent pixels.
    explicit StatusItemElements(double edgeInset);

    /// Arranges what `plan` shows. `warningColor` is the colour of over-time.
    void arrange(const StatusItemPlan& plan, const QColor& warningColor);

    /// All elements in a row. Changes with each call of `arrange`.
    [[nodiscard]] const MenubarStackView& stackView() const { return stackView_; }

private:
    void arrangeSymbol(const StatusItemPlan& plan, const QColor& warningColor);
    void arrangeTexts(const StatusItemPlan& plan);

    StatusItemStyle style_ = StatusItemStyle::ofSystem();
    MenubarView dot_{style_.diameter, LiveTag};
    MenubarProgressView cutoutRing_{style_.diameter, CutoutTag};
    MenubarProgressView liveRing_{style_.diameter, LiveTag};
    MenubarClockView clock_{style_.diameter, CutoutTag};
    MenubarText task_{CutoutTag};
    MenubarText time_{CutoutTag};
    MenubarStackView lines_; ///< the task above the time
    MenubarStackView stackView_;
};

} // namespace quor::helper
