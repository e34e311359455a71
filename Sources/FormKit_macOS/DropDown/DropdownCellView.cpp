// SPDX-License-Identifier: MIT
#include "FormKit_macOS/DropDown/DropdownCellView.h"

#include "FormKit_macOS/Controls/ElidedText.h"
#include "FormKit_macOS/DropDown/ItemImage.h"
#include "FormKit_macOS/DropDown/TextMatch.h"
#include "Platform/Resources/Tinting.h"

#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QTextLayout>

#include <algorithm>

namespace quor::formkit {

namespace {

constexpr int sidePadding = 5;
constexpr int spacing = 5;
constexpr int padding = 3; ///< above and below the name
constexpr int leastHeight = 16;
constexpr int indentationWidth = 14;
constexpr int deepestIndentation = 12; ///< so that there is room for the name
constexpr int markSide = 9;
constexpr double disabledOpacity = 0.5;
constexpr double matchOpacity = 0.28;
constexpr qsizetype longestShown = 600; ///< characters, more than fit into a row

QTextLayout::FormatRange background(const platform::TextRange& range, const QColor& color)
{
    QTextLayout::FormatRange format;
    format.start = int(range.location);
    format.length = int(range.length);
    format.format.setBackground(color);
    return format;
}

} // namespace

DropdownCellView::DropdownCellView(QWidget* parent)
    : QWidget(parent)
{
}

void DropdownCellView::setItem(const FormItem& item, bool isSelected, const QString& searched)
{
    item_ = item;
    name_ = singleLine(item.name.left(longestShown));
    isSelected_ = isSelected;
    searched_ = searched;
    updateGeometry();
    update();
}

int DropdownCellView::side() const
{
    return fontMetrics().ascent();
}

DropdownCellView::Columns DropdownCellView::columns() const
{
    Columns columns{.check = sidePadding, .image = 0, .mark = 0, .name = 0};
    columns.image = columns.check + side() + spacing
        + indentationWidth * std::clamp(item_.indentationLevel, 0, deepestIndentation);
    columns.mark = columns.image + (item_.image ? side() + spacing : 0);
    columns.name = columns.mark + (item_.color ? markSide + spacing : 0);
    return columns;
}

QSize DropdownCellView::sizeHint() const
{
    const int height = std::max(leastHeight, fontMetrics().height() + 2 * padding);
    return {columns().name + fontMetrics().horizontalAdvance(name_) + sidePadding, height};
}

void DropdownCellView::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setOpacity(item_.isEnabled ? 1 : disabledOpacity);
    const auto [check, image, mark, name] = columns();
    const auto placed = [this](int left, int width, int height) {
        return QStyle::visualRect(
            layoutDirection(), rect(), QRect(left, (this->height() - height) / 2, width, height));
    };
    if (isSelected_)
        drawCheckMark(painter, placed(check, side(), side()));
    if (item_.image)
        painter.drawPixmap(
            placed(image, side(), side()), itemImage(*item_.image, side(), devicePixelRatioF()));
    if (item_.color) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(*item_.color);
        painter.drawEllipse(placed(mark, markSide, markSide));
    }
    const int width = this->width() - name - sidePadding;
    if (width > 0)
        drawName(painter, placed(name, width, fontMetrics().height()));
}

void DropdownCellView::drawCheckMark(QPainter& painter, const QRectF& place) const
{
    constexpr double strokeOfSide = 0.13;
    const auto at = [&](double x, double y) {
        return place.topLeft() + QPointF(x * place.width(), y * place.height());
    };
    QPainterPath path(at(0.18, 0.55));
    path.lineTo(at(0.42, 0.8));
    path.lineTo(at(0.82, 0.22));
    QPen pen(palette().color(foregroundRole()), place.width() * strokeOfSide);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
    painter.strokePath(path, pen);
}

void DropdownCellView::drawName(QPainter& painter, const QRect& place) const
{
    const QColor ink = palette().color(foregroundRole());
    QTextLayout layout(fontMetrics().elidedText(name_, Qt::ElideRight, place.width()), font());
    QTextOption option;
    option.setTextDirection(layoutDirection());
    option.setWrapMode(QTextOption::NoWrap);
    layout.setTextOption(option);
    layout.beginLayout();
    QTextLine line = layout.createLine();
    line.setLineWidth(place.width());
    layout.endLayout();
    QList<QTextLayout::FormatRange> marked;
    if (const auto match = matchIn(name_, searched_))
        marked += background(
            match->clipped(layout.text().size()), platform::withAlpha(ink, matchOpacity * ink.alphaF()));
    painter.setPen(ink);
    layout.draw(&painter, place.topLeft(), marked);
}

} // namespace quor::formkit
