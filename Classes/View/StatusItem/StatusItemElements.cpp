// SPDX-License-Identifier: MIT
#include "View/StatusItem/StatusItemElements.h"

#include "View/StatusItem/MenubarClockView.h"
#include "View/StatusItem/MenubarProgressView.h"
#include "View/StatusItem/MenubarStackView.h"
#include "View/StatusItem/MenubarText.h"

#include <limits>
#include <memory>
#include <utility>
#include <vector>

namespace quor::helper {

namespace {

constexpr double spacingAfterSymbol = 5;
constexpr double longestTask = 90;

// Fills a stack, with the elements that it had where there are fitting ones: widgets are dear.
class Filling final {
public:
    Filling(MenubarStackView& stack, const StatusItemStyle& style)
        : stack_(stack)
        , style_(style)
        , previous_(stack.takeSubviews())
    {
    }

    [[nodiscard]] MenubarStackView& stack() const { return stack_; }

    [[nodiscard]] std::unique_ptr<MenubarProgressView> ring(
        const StatusItemPlan::Ring& ring, const QColor& warningColor)
    {
        auto view = element<MenubarProgressView>(ring.tag, style_.diameter);
        view->setRing({ring.progress, ring.color, ring.backgroundColor, warningColor});
        return view;
    }
    [[nodiscard]] std::unique_ptr<MenubarView> dot(const StatusItemPlan::Dot& dot)
    {
        auto view = element<MenubarView>(LiveTag, style_.diameter);
        view->setBackground(dot.color);
        return view;
    }
    [[nodiscard]] std::unique_ptr<MenubarClockView> clock(StatusItemPlan::ClockFace time)
    {
        auto view = element<MenubarClockView>(CutoutTag, style_.diameter);
        view->setTime(time);
        return view;
    }
    [[nodiscard]] std::unique_ptr<MenubarText> text(
        const QString& text, const TextStyle& style, double maximumWidth = unlimited)
    {
        auto view = element<MenubarText>(CutoutTag, style);
        view->setText(text);
        view->setMaximumFrameWidth(maximumWidth);
        return view;
    }
    [[nodiscard]] std::unique_ptr<MenubarStackView> column()
    {
        return element<MenubarStackView>(CutoutTag, Qt::Vertical);
    }

private:
    static constexpr double unlimited = std::numeric_limits<double>::infinity();

    template <typename Element, typename Argument>
    std::unique_ptr<Element> element(int tag, const Argument& argument)
    {
        for (auto& old : previous_) {
            if (old && old->metaObject() == &Element::staticMetaObject && old->tag() == tag)
                return std::unique_ptr<Element>(static_cast<Element*>(old.release()));
        }
        return std::make_unique<Element>(argument, tag, &stack_);
    }

    MenubarStackView& stack_;
    const StatusItemStyle& style_;
    std::vector<std::unique_ptr<MenubarElement>> previous_;
};

void addSymbol(Filling& filling, const StatusItemPlan& plan, const QColor& warningColor)
{
    std::unique_ptr<MenubarElement> symbol;
    if (const auto* ring = std::get_if<StatusItemPlan::Ring>(&plan.symbol))
        symbol = filling.ring(*ring, warningColor);
    else if (const auto* dot = std::get_if<StatusItemPlan::Dot>(&plan.symbol))
        symbol = filling.dot(*dot);
    else
        return;
    const MenubarElement& center = *symbol;
    filling.stack().addArrangedSubview(std::move(symbol));
    filling.stack().setCustomSpacing(spacingAfterSymbol);
    if (plan.overTime)
        filling.stack().addSubview(filling.ring(*plan.overTime, warningColor), center);
}

void addTwoLines(Filling& filling, const StatusItemPlan& plan, const StatusItemStyle& style)
{
    auto column = filling.column();
    column->setSpacing(-1);
    column->setEdgeInsets({2, 0, 2, 0});
    Filling lines(*column, style);
    auto task = lines.text(*plan.taskText, style.smallLabel);
    auto time = lines.text(*plan.timeText, style.smallLabel);
    task->setMaximumFrameWidth(time->fittingSize().width());
    column->addArrangedSubview(std::move(task));
    column->addArrangedSubview(std::move(time));
    filling.stack().addArrangedSubview(std::move(column));
}

} // namespace

void buildElements(MenubarStackView& stack, const StatusItemPlan& plan, const StatusItemStyle& style,
    const QColor& warningColor)
{
    Filling filling(stack, style);
    addSymbol(filling, plan, warningColor);
    if (plan.twoLines) {
        addTwoLines(filling, plan, style);
    } else {
        if (plan.taskText)
            stack.addArrangedSubview(filling.text(*plan.taskText, style.label, longestTask));
        if (plan.timeText)
            stack.addArrangedSubview(filling.text(*plan.timeText, style.label));
    }
    if (plan.clockFace)
        stack.addArrangedSubview(filling.clock(*plan.clockFace));
}

} // namespace quor::helper
