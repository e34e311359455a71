// SPDX-License-Identifier: MIT
#include "View/StatusItem/StatusItemElements.h"

#include <variant>

namespace quor::helper {

namespace {

constexpr double spacing = 2;
constexpr double spacingAfterSymbol = 5;
constexpr double widestTask = 90;
constexpr double spacingOfLines = -1;
constexpr QMarginsF insetsOfLines(2, 0, 2, 0);

} // namespace

StatusItemElements::StatusItemElements(double edgeInset)
    : lines_(Qt::Vertical, CutoutTag, spacingOfLines, insetsOfLines)
    , stackView_(Qt::Horizontal, LiveTag, spacing, {edgeInset, 0, edgeInset, 0})
{
}

void StatusItemElements::arrange(const StatusItemPlan& plan, const QColor& warningColor)
{
    stackView_.clear();
    lines_.clear();
    arrangeSymbol(plan, warningColor);
    arrangeTexts(plan);
    if (plan.clockFace) {
        clock_.setTime(*plan.clockFace);
        stackView_.addArrangedSubview(clock_);
    }
}

void StatusItemElements::arrangeSymbol(const StatusItemPlan& plan, const QColor& warningColor)
{
    if (const auto* ring = std::get_if<StatusItemPlan::Ring>(&plan.symbol)) {
        auto& view = ring->tag == CutoutTag ? cutoutRing_ : liveRing_;
        view.setRing(*ring, warningColor);
        stackView_.addArrangedSubview(view, spacingAfterSymbol);
    } else if (const auto* dot = std::get_if<StatusItemPlan::Dot>(&plan.symbol)) {
        dot_.setBackground(dot->color);
        stackView_.addArrangedSubview(dot_, spacingAfterSymbol);
    }
    if (plan.overTime) {
        liveRing_.setRing(*plan.overTime, warningColor);
        stackView_.addSubview(liveRing_);
    }
}

void StatusItemElements::arrangeTexts(const StatusItemPlan& plan)
{
    const TextStyle& style = plan.twoLines ? style_.smallLabel : style_.label;
    auto& stack = plan.twoLines ? lines_ : stackView_;
    if (plan.timeText)
        time_.setText(*plan.timeText, style);
    if (plan.taskText) {
        task_.setText(*plan.taskText, style);
        task_.setMaximumWidth(plan.twoLines ? time_.fittingSize().width() : widestTask);
        stack.addArrangedSubview(task_);
    }
    if (plan.timeText)
        stack.addArrangedSubview(time_);
    if (plan.twoLines)
        stackView_.addArrangedSubview(lines_);
}

} // namespace quor::helper
