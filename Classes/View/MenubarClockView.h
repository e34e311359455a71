// SPDX-License-Identifier: MIT
#pragma once

#include "View/MenubarView.h"
#include "View/StatusItemPlan.h"

namespace quor::helper {

/// The face of a clock, hour and minute hand, at the time of its creation.
class MenubarClockView final : public MenubarView {
    Q_OBJECT

public:
    MenubarClockView(StatusItemPlan::ClockFace time, double diameter, int tag, QWidget* parent = nullptr);

    void draw(QPainter& painter) const override;

private:
    StatusItemPlan::ClockFace time_;
};

} // namespace quor::helper
