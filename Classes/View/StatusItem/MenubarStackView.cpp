// SPDX-License-Identifier: MIT
#include "View/StatusItem/MenubarStackView.h"

#include <QPainter>

#include <algorithm>

namespace quor::helper {

MenubarStackView::MenubarStackView(
    Qt::Orientation orientation, int tag, double spacing, const QMarginsF& edgeInsets)
    : MenubarElement(tag)
    , orientation_(orientation)
    , spacing_(spacing)
    , insets_(edgeInsets)
{
}

void MenubarStackView::addArrangedSubview(const MenubarElement& element, std::optional<double> spacingAfter)
{
    subviews_.push_back({&element, spacingAfter.value_or(spacing_), true});
}

void MenubarStackView::addSubview(const MenubarElement& element)
{
    subviews_.push_back({&element, 0, false});
}

QSizeF MenubarStackView::fittingSize() const
{
    const bool isRow = orientation_ == Qt::Horizontal;
    double along = 0;
    double across = 0;
    double spacing = 0; // of the element before
    for (const Subview& subview : subviews_) {
        if (!subview.isArranged)
            continue;
        const QSizeF size = subview.element->fittingSize();
        along += spacing + (isRow ? size.width() : size.height());
        across = std::max(across, isRow ? size.height() : size.width());
        spacing = subview.spacingAfter;
    }
    return (isRow ? QSizeF(along, across) : QSizeF(across, along)).grownBy(insets_);
}

void MenubarStackView::drawTagged(QPainter& painter, QSizeF size, int tag) const
{
    const QRectF content = QRectF({}, size).marginsRemoved(insets_);
    QPointF next = content.topLeft();
    QRectF frame;
    for (const Subview& subview : subviews_) {
        const QSizeF fitting = subview.element->fittingSize();
        if (!subview.isArranged) {
            const QPointF center = frame.center();
            frame.setSize(fitting);
            frame.moveCenter(center);
        } else if (orientation_ == Qt::Horizontal) {
            frame = {{next.x(), content.center().y() - fitting.height() / 2}, fitting};
            next.rx() += fitting.width() + subview.spacingAfter;
        } else {
            frame = {next, fitting};
            next.ry() += fitting.height() + subview.spacingAfter;
        }
        if (subview.element->tag() != tag)
            continue;
        painter.save();
        painter.translate(frame.topLeft());
        subview.element->draw(painter, fitting);
        painter.restore();
    }
}

} // namespace quor::helper
