// SPDX-License-Identifier: MIT
#include "Platform/Views/Table/TableRowView.h"

#include "Platform/Resources/Tinting.h"

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

void TableRowView::setSideMargin(int margin)
{
    sideMargin_ = margin;
    placeView();
}

void TableRowView::setSelected(bool selected)
{
    if (selected == selected_)
        return;
    selected_ = selected;
    selectionAppearanceChanged();
}

void TableRowView::setEmphasized(bool emphasized)
{
    if (emphasized == emphasized_)
        return;
    emphasized_ = emphasized;
    selectionAppearanceChanged();
}

void TableRowView::setSelectionHighlightStyle(TableViewSelectionStyle style)
{
    if (style == style_)
        return;
    style_ = style;
    selectionAppearanceChanged();
}

bool TableRowView::showsEmphasis() const
{
    return selected_ && isEmphasized();
}

void TableRowView::selectionAppearanceChanged()
{
    // The view takes its text colour from the background role that it inherits.
    setBackgroundRole(showsEmphasis() ? QPalette::Highlight : QPalette::NoRole);
    update();
}

void TableRowView::drawSelection(QPainter& painter) const
{
    if (selectionHighlightStyle() == TableViewSelectionStyle::none)
        return;
    constexpr qreal cornerRadius = 5;
    constexpr qreal faint = 0.18; // the alpha of the text colour: readable in any theme
    const QColor color = showsEmphasis() ? palette().color(QPalette::Highlight)
                                         : withAlpha(palette().color(QPalette::Text), faint);
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

void TableRowView::placeView()
{
    if (view_)
        view_->setGeometry(rect().adjusted(sideMargin_, above_, -sideMargin_, -below_));
}

} // namespace quor::platform
