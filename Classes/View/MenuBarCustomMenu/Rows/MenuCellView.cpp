// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/Rows/MenuCellView.h"

#include <QEvent>
#include <QPainter>

namespace quor::helper {

MenuCellView::MenuCellView(QWidget* parent)
    : QWidget(parent)
    , clickArea_(this)
{
    connect(&clickArea_, &QAbstractButton::clicked, this, [this] {
        if (built_)
            clicked(MenuEntry::Entry(*built_)); // a copy, as the handler may change or delete the cell
    });
}

void MenuCellView::rebuild()
{
    if (!data)
        return;
    if (built_ && built_->action != data->action)
        clickArea_.cancelPress();
    built_ = data;
    parts_ = metrics_.parts(*data, devicePixelRatioF());
    clickArea_.setAccessibleName(parts_.label.text());
    clickArea_.setAccessibleDescription(parts_.hotKey.text());
    if (children().last() != &clickArea_)
        clickArea_.raise();
    update();
}

QSize MenuCellView::sizeHint() const
{
    return metrics_.fittingSize(parts_);
}

QColor MenuCellView::tint(const QColor& textColor) const
{
    const bool stops = std::holds_alternative<MenuEntry::Entry::Action::Stop>(built_->action.value);
    return stops && built_->color ? QColor::fromRgb(QRgb(*built_->color)) : textColor;
}

void MenuCellView::paintEvent(QPaintEvent* /*event*/)
{
    if (!built_)
        return;
    if (!parts_.icon.pixels.isNull() && parts_.icon.pixels.devicePixelRatio() != devicePixelRatioF())
        parts_ = metrics_.parts(*built_, devicePixelRatioF()); // the cell has moved to another screen
    const auto placed = [this](const QRectF& frame) {
        return layoutDirection() == Qt::LeftToRight
            ? frame
            : QRectF(QPointF(width() - frame.right(), frame.top()), frame.size());
    };
    const MenuCellMetrics::Frames frames = metrics_.frames(parts_, size());
    const QColor textColor = palette().color(foregroundRole());
    QPainter painter(this);
    if (!parts_.icon.pixels.isNull())
        painter.drawImage(placed(frames.icon).topLeft(), parts_.icon.shownIn(tint(textColor)));
    parts_.label.draw(painter, placed(frames.label), textColor, layoutDirection());
    parts_.hotKey.draw(painter, placed(frames.hotKey), palette().color(QPalette::Disabled, foregroundRole()),
        layoutDirection());
}

void MenuCellView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    clickArea_.setGeometry(rect());
}

void MenuCellView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        metrics_ = MenuCellMetrics();
        if (built_)
            parts_ = metrics_.parts(*built_, devicePixelRatioF());
    }
    update();
}

} // namespace quor::helper
