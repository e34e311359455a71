// SPDX-License-Identifier: MIT
#include "Platform/Views/TableRowView.h"

#include <QEvent>
#include <QPainter>

namespace quor::platform {

TableRowView::TableRowView(QWidget* parent)
    : QWidget(parent)
{
}

void TableRowView::setView(QWidget* view)
{
    if (view == view_)
        return;
    view_ = view;
    if (!view)
        return;
    view->setParent(this);
    placeView();
    view->show();
}

void TableRowView::setSpacing(int above, int below)
{
    if (above == above_ && below == below_)
        return;
    above_ = above;
    below_ = below;
    placeView();
}

void TableRowView::setSelected(bool selected)
{
    if (selected == selected_)
        return;
    selected_ = selected;
    selectionLookChanged();
}

void TableRowView::setEmphasized(bool emphasized)
{
    if (emphasized == emphasized_)
        return;
    emphasized_ = emphasized;
    selectionLookChanged();
}

void TableRowView::setSelectionHighlightStyle(TableViewSelectionStyle style)
{
    if (style == style_)
        return;
    style_ = style;
    selectionLookChanged();
}

bool TableRowView::showsEmphasis() const
{
    return selected_ && isEmphasized();
}

void TableRowView::selectionLookChanged()
{
    // Only what differs from the parent's palette is set, so that a change of theme comes through.
    QPalette look;
    if (showsEmphasis())
        look.setColor(QPalette::WindowText, palette().color(QPalette::Active, QPalette::HighlightedText));
    setPalette(look);
    update();
}

void TableRowView::drawSelection(QPainter& painter) const
{
    if (selectionHighlightStyle() == TableViewSelectionStyle::none)
        return;
    constexpr qreal cornerRadius = 5;
    const QColor color = showsEmphasis() ? palette().color(QPalette::Active, QPalette::Highlight)
                                         : palette().color(QPalette::Active, QPalette::Midlight);
    if (selectionHighlightStyle() == TableViewSelectionStyle::regular) {
        painter.fillRect(rect(), color);
        return;
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    painter.setBrush(color);
    painter.drawRoundedRect(rect(), cornerRadius, cornerRadius);
}

void TableRowView::paintEvent(QPaintEvent* /*event*/)
{
    if (!selected_)
        return;
    QPainter painter(this);
    drawSelection(painter);
}

void TableRowView::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    placeView();
}

void TableRowView::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    const bool themeChanged = event->type() == QEvent::PaletteChange && showsEmphasis()
        && palette().color(QPalette::WindowText)
            != palette().color(QPalette::Active, QPalette::HighlightedText);
    if (themeChanged)
        selectionLookChanged();
}

void TableRowView::placeView()
{
    if (view_)
        view_->setGeometry(rect().adjusted(0, above_, 0, -below_));
}

} // namespace quor::platform
