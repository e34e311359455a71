// SPDX-License-Identifier: MIT
#pragma once

#include "View/StatusItem/MenubarView.h"
#include "View/StatusItem/StatusItemPlan.h"

namespace quor::helper {

/// The face of a clock with an hour hand and a minute hand.
class MenubarClockView final : public MenubarView {
public:
    using MenubarView::MenubarView;

    void setTime(StatusItemPlan::ClockFace time) { time_ = time; }

    void draw(QPainter& painter, QSizeF size) const override;

private:
    StatusItemPlan::ClockFace time_;
};

} // namespace quor::helper
