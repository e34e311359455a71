// SPDX-License-Identifier: MIT
#pragma once

#include "View/StatusItem/MenubarView.h"
#include "View/StatusItem/StatusItemPlan.h"

namespace quor::helper {

/// The face of a clock, hour and minute hand.
class MenubarClockView final : public MenubarView {
    Q_OBJECT

public:
    using MenubarView::MenubarView;

    void setTime(StatusItemPlan::ClockFace time) { time_ = time; }

    void draw(QPainter& painter) const override;

private:
    StatusItemPlan::ClockFace time_;
};

} // namespace quor::helper
