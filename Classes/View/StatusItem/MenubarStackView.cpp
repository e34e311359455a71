// SPDX-License-Identifier: MIT
#include "View/StatusItem/MenubarStackView.h"

#include "Platform/Views/StatusBarButton.h"
#include "View/StatusItem/StatusItemPlan.h"

#include <QEvent>
#include <QPainter>

#include <algorithm>
#include <utility>

namespace quor::helper {

MenubarStackView::MenubarStackView(Qt::Orientation orientation, int tag, QWidget* parent)
    : MenubarElement(tag, parent)
    , orientation_(orientation)
{
}

void MenubarStackView::addArrangedSubview(std::unique_ptr<MenubarElement> element)
{
    subviews_.push_back({std::move(element), std::nullopt, nullptr});
}

void MenubarStackView::setCustomSpacing(double spacing)
{
    subviews_.back().spacingAfter = spacing;
}

void MenubarStackView::addSubview(std::unique_ptr<MenubarElement> element, const MenubarElement& center)
{
    subviews_.push_back({std::move(element), std::nullopt, &center});
}

std::vector<std::unique_ptr<MenubarElement>> MenubarStackView::takeSubviews()
{
    std::vector<std::unique_ptr<MenubarElement>> taken;
    taken.reserve(subviews_.size());
    for (Subview& subview : subviews_)
        taken.push_back(std::move(subview.element));
    subviews_.clear();
    return taken;
}

double MenubarStackView::spacingAfter(const Subview& subview) const
{
    return subview.spacingAfter.value_or(spacing_);
}

QSizeF MenubarStackView::fittingSize() const
{
    double along = 0;
    double across = 0;
    double spacing = 0; // counts only where another element follows
    for (const Subview& subview : subviews_) {
        if (subview.center)
            continue;
        const QSizeF size = subview.element->fittingSize();
        const bool isRow = orientation_ == Qt::Horizontal;
        along += spacing + (isRow ? size.width() : size.height());
        across = std::max(across, isRow ? size.height() : size.width());
        spacing = spacingAfter(subview);
    }
    const QSizeF content = orientation_ == Qt::Horizontal ? QSizeF(along, across) : QSizeF(across, along);
    return content.grownBy(insets_);
}

void MenubarStackView::layOut(QSizeF size)
{
    setFrame(QRectF(frame().topLeft(), size));
    const QRectF content = QRectF({}, size).marginsRemoved(insets_);
    QPointF next = content.topLeft();
    for (const Subview& subview : subviews_) {
        const QSizeF fitting = subview.element->fittingSize();
        QRectF frame(next, fitting);
        if (subview.center) {
            frame.moveCenter(subview.center->frame().center());
        } else if (orientation_ == Qt::Horizontal) {
            frame.moveTop(content.center().y() - fitting.height() / 2);
            next.rx() += fitting.width() + spacingAfter(subview);
        } else {
            next.ry() += fitting.height() + spacingAfter(subview);
        }
        subview.element->setFrame(frame);
        if (auto* stack = qobject_cast<MenubarStackView*>(subview.element.get()))
            stack->layOut(fitting);
    }
}

void MenubarStackView::draw(QPainter& painter) const
{
    drawTagged(painter, tag());
}

void MenubarStackView::drawTagged(QPainter& painter, int tag) const
{
    for (const Subview& subview : subviews_) {
        if (subview.element->tag() != tag)
            continue;
        painter.save();
        painter.translate(subview.element->frame().topLeft());
        subview.element->draw(painter);
        painter.restore();
    }
}

void MenubarStackView::showOver(platform::StatusBarButton& button)
{
    if (button_ != &button) {
        detach();
        button_ = &button;
        setParent(&button);
        button.installEventFilter(this);
    }
    show();
    cover(button);
}

void MenubarStackView::detach()
{
    if (button_)
        button_->removeEventFilter(this);
    button_ = nullptr;
    setParent(nullptr);
}

void MenubarStackView::cover(const platform::StatusBarButton& button)
{
    setGeometry(button.rect());
    const QPointF origin = button.imageOrigin();
    for (const Subview& subview : subviews_) {
        if (subview.element->tag() != LiveTag)
            continue;
        subview.element->place(origin);
        subview.element->show();
    }
}

void MenubarStackView::paintEvent(QPaintEvent*) { }

bool MenubarStackView::eventFilter(QObject*, QEvent* event)
{
    if (event->type() == QEvent::Resize || event->type() == QEvent::Move)
        cover(*button_);
    return false;
}

} // namespace quor::helper
