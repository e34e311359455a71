// SPDX-License-Identifier: MIT
#include "View/StatusItemElements.h"

#include "ToolKit/Drawing/SystemFont.h"
#include "View/MenubarClockView.h"
#include "View/MenubarProgressView.h"
#include "View/MenubarStackView.h"
#include "View/MenubarText.h"

#include <utility>

namespace quor::helper {

namespace {

constexpr double spacingAfterSymbol = 5;
constexpr double longestTask = 90;

using Elements = std::vector<std::unique_ptr<MenubarElement>>;

std::unique_ptr<MenubarElement> ring(
    const StatusItemPlan::Ring& ring, const QColor& warningColor, QWidget* parent)
{
    return std::make_unique<MenubarProgressView>(ring.progress,
        MenubarProgressView::Colors{ring.color, ring.backgroundColor, warningColor}, ring.tag, parent);
}

std::unique_ptr<MenubarElement> dot(const StatusItemPlan::Dot& dot, QWidget* parent)
{
    auto view = std::make_unique<MenubarView>(LiveTag, parent);
    view->setBackground(dot.color);
    return view;
}

// The symbol, and above it the over-time arc where there is one.
Elements symbol(const StatusItemPlan& plan, const QColor& warningColor, QWidget* parent)
{
    Elements elements;
    if (const auto* planned = std::get_if<StatusItemPlan::Ring>(&plan.symbol))
        elements.push_back(ring(*planned, warningColor, parent));
    else if (const auto* disc = std::get_if<StatusItemPlan::Dot>(&plan.symbol))
        elements.push_back(dot(*disc, parent));
    if (plan.overTime)
        elements.push_back(ring(*plan.overTime, warningColor, parent));
    return elements;
}

void addSymbol(MenubarStackView& stack, Elements& elements, const StatusItemPlan& plan)
{
    if (std::holds_alternative<std::monostate>(plan.symbol))
        return;
    const MenubarElement& view = *elements.front();
    stack.addArrangedSubview(std::move(elements.front()));
    stack.setCustomSpacing(spacingAfterSymbol);
    if (plan.overTime)
        stack.addSubview(std::move(elements[1]), view);
}

std::unique_ptr<MenubarText> label(const QString& text, QWidget* parent)
{
    return std::make_unique<MenubarText>(
        text, toolkit::monospacedDigitFont(11, QFont::Medium), CutoutTag, parent);
}

std::unique_ptr<MenubarElement> twoLines(const QString& task, const QString& time, QWidget* parent)
{
    const QFont font = toolkit::systemFont(8, QFont::Medium);
    auto lines = std::make_unique<MenubarStackView>(Qt::Vertical, CutoutTag, parent);
    lines->setSpacing(-1);
    lines->setEdgeInsets({2, 0, 2, 0});
    auto taskLabel = std::make_unique<MenubarText>(task, font, CutoutTag, lines.get());
    auto timeLabel = std::make_unique<MenubarText>(time, font, CutoutTag, lines.get());
    taskLabel->setMaximumFrameWidth(timeLabel->fittingSize().width());
    lines->addArrangedSubview(std::move(taskLabel));
    lines->addArrangedSubview(std::move(timeLabel));
    return lines;
}

void addTexts(MenubarStackView& stack, const StatusItemPlan& plan)
{
    if (plan.twoLines) {
        stack.addArrangedSubview(twoLines(*plan.taskText, *plan.timeText, &stack));
        return;
    }
    if (plan.taskText) {
        auto task = label(*plan.taskText, &stack);
        task->setMaximumFrameWidth(longestTask);
        stack.addArrangedSubview(std::move(task));
    }
    if (plan.timeText)
        stack.addArrangedSubview(label(*plan.timeText, &stack));
}

} // namespace

void buildElements(
    MenubarStackView& stack, const StatusItemPlan& plan, const QColor& warningColor, bool keepSymbol)
{
    Elements previous = stack.takeSubviews();
    Elements symbolElements = keepSymbol ? std::move(previous) : symbol(plan, warningColor, &stack);
    addSymbol(stack, symbolElements, plan);
    addTexts(stack, plan);
    if (plan.clockFace)
        stack.addArrangedSubview(std::make_unique<MenubarClockView>(*plan.clockFace, CutoutTag, &stack));
}

} // namespace quor::helper
