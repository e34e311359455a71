// SPDX-License-Identifier: MIT
#include "ToolKit/Drawing/Text/TextDrawing.h"

#include "Platform/Text/AttributedString.h"
#include "ToolKit/Drawing/Text/TextLayout.h"
#include "ToolKit/Drawing/Text/TextShadow.h"

#include <QPainter>

#include <cmath>

using quor::platform::AttributedString;

namespace quor::toolkit {

namespace {

QSizeF rounded(QSizeF size)
{
    return {roundedTextLength(size.width()), roundedTextLength(size.height())};
}

QPointF upperLeft(
    QPointF at, QSizeF size, Qt::AlignmentFlag alignment, TextVerticalAlignment verticalAlignment)
{
    if (alignment == Qt::AlignRight)
        at.rx() -= size.width();
    else if (alignment == Qt::AlignHCenter || alignment == Qt::AlignCenter)
        at.rx() -= size.width() / 2;
    if (verticalAlignment == TextVerticalAlignment::bottom)
        at.ry() -= size.height();
    else if (verticalAlignment == TextVerticalAlignment::center)
        at.ry() -= size.height() / 2;
    return at;
}

void place(QPainter& painter, const TextLayout& layout, QPointF at, Qt::AlignmentFlag alignment,
    TextVerticalAlignment verticalAlignment, const std::optional<QColor>& shadowColor)
{
    if (!std::isfinite(at.x()) || !std::isfinite(at.y()))
        return;
    const QSizeF size = rounded(layout.size());
    const QPointF origin = upperLeft(at, size, alignment, verticalAlignment);
    const auto draw = [&](QPainter& on) { layout.draw(on, origin, size.width(), alignment); };
    if (shadowColor)
        drawSoftShadow(painter, {origin, size}, *shadowColor, draw);
    draw(painter);
}

} // namespace

double roundedTextLength(double length)
{
    if (!std::isfinite(length))
        return 0;
    const double whole = std::trunc(length);
    return whole + (length - whole < 0.5 ? 0.5 : 1.0);
}

QSizeF textSize(const QString& text, const QFont& font, bool wraps, double maxWidth)
{
    return textSize(AttributedString(text), font, wraps, maxWidth);
}

QSizeF textSize(const AttributedString& text, const QFont& font, bool wraps, double maxWidth)
{
    return rounded(TextLayout(text, font, wraps, maxWidth).size());
}

void drawText(QPainter& painter, const QString& text, const QColor& color, const QFont& font,
    Qt::AlignmentFlag alignment, TextVerticalAlignment verticalAlignment, bool wraps,
    std::optional<QColor> shadowColor, double x, double y, double maxWidth)
{
    if (!painter.isActive())
        return;
    const QPen before = painter.pen();
    painter.setPen(color);
    const TextLayout layout(AttributedString(text), font, wraps, maxWidth);
    place(painter, layout, {x, y}, alignment, verticalAlignment, shadowColor);
    painter.setPen(before);
}

void drawAttributedText(QPainter& painter, const AttributedString& text, Qt::AlignmentFlag alignment,
    TextVerticalAlignment verticalAlignment, bool wraps, std::optional<QColor> shadowColor, double x,
    double y, double maxWidth)
{
    if (!painter.isActive())
        return;
    const TextLayout layout(text, painter.font(), wraps, maxWidth);
    place(painter, layout, {x, y}, alignment, verticalAlignment, shadowColor);
}

} // namespace quor::toolkit
