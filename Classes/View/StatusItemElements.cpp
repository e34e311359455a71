// SPDX-License-Identifier: MIT
#include "View/StatusItemElements.h"

#include "View/MenubarClockView.h"
#include "View/MenubarProgressView.h"
#include "View/MenubarStackView.h"
#include "View/MenubarText.h"

#include <memory>
#include <utility>
#include <vector>

namespace quor::helper {

namespace {

constexpr double spacingAfterSymbol = 5;
constexpr double longestTask = 90;

using Elements = std::vector<std::unique_ptr<MenubarElement>>;

// What every element is made with.
struct Making {
    MenubarStackView& stack;
    const StatusItemPlan& plan;
    const StatusItemStyle& style;
    const QColor& warningColor;
};

std::unique_ptr<MenubarElement> ring(const Making& making, const StatusItemPlan::Ring& ring)
{
    const MenubarProgressView::Colors colors{ring.color, ring.backgroundColor, making.warningColor};
    return std::make_unique<MenubarProgressView>(
        ring.progress, colors, making.style.diameter, ring.tag, &making.stack);
}

std::unique_ptr<MenubarElement> dot(const Making& making, const StatusItemPlan::Dot& dot)
{
    auto view = std::make_unique<MenubarView>(making.style.diameter, LiveTag, &making.stack);
    view->setBackground(dot.color);
    return view;
}

// The symbol, and above it the over-time arc where there is one.
Elements symbol(const Making& making)
{
    Elements elements;
    if (const auto* planned = std::get_if<StatusItemPlan::Ring>(&making.plan.symbol))
        elements.push_back(ring(making, *planned));
    else if (const auto* disc = std::get_if<StatusItemPlan::Dot>(&making.plan.symbol))
        elements.push_back(dot(making, *disc));
    if (making.plan.overTime)
        elements.push_back(ring(making, *making.plan.overTime));
    return elements;
}

void addSymbol(const Making& making, Elements elements)
{
    if (std::holds_alternative<std::monostate>(making.plan.symbol))
        return;
    const MenubarElement& view = *elements.front();
    making.stack.addArrangedSubview(std::move(elements.front()));
    making.stack.setCustomSpacing(spacingAfterSymbol);
    if (making.plan.overTime)
        making.stack.addSubview(std::move(elements[1]), view);
}

std::unique_ptr<MenubarElement> twoLines(const Making& making)
{
    auto lines = std::make_unique<MenubarStackView>(Qt::Vertical, CutoutTag, &making.stack);
    lines->setSpacing(-1);
    lines->setEdgeInsets({2, 0, 2, 0});
    const auto label = [&](const QString& text) {
        return std::make_unique<MenubarText>(text, making.style.smallLabel, CutoutTag, lines.get());
    };
    auto task = label(*making.plan.taskText);
    auto time = label(*making.plan.timeText);
    task->setMaximumFrameWidth(time->fittingSize().width());
    lines->addArrangedSubview(std::move(task));
    lines->addArrangedSubview(std::move(time));
    return lines;
}

void addTexts(const Making& making)
{
    if (making.plan.twoLines) {
        making.stack.addArrangedSubview(twoLines(making));
        return;
    }
    const auto label = [&](const QString& text) {
        return std::make_unique<MenubarText>(text, making.style.label, CutoutTag, &making.stack);
    };
    if (making.plan.taskText) {
        auto task = label(*making.plan.taskText);
        task->setMaximumFrameWidth(longestTask);
        making.stack.addArrangedSubview(std::move(task));
    }
    if (making.plan.timeText)
        making.stack.addArrangedSubview(label(*making.plan.timeText));
}

} // namespace

void buildElements(MenubarStackView& stack, const StatusItemPlan& plan, const StatusItemStyle& style,
    const QColor& warningColor, bool keepSymbol)
{
    const Making making{stack, plan, style, warningColor};
    Elements previous = stack.takeSubviews();
    addSymbol(making, keepSymbol ? std::move(previous) : symbol(making));
    addTexts(making);
    if (plan.clockFace)
        stack.addArrangedSubview(
            std::make_unique<MenubarClockView>(*plan.clockFace, style.diameter, CutoutTag, &stack));
}

} // namespace quor::helper
