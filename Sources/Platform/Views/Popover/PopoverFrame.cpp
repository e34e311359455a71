// SPDX-License-Identifier: MIT
#include "Platform/Views/Popover/PopoverFrame.h"

#include "Platform/Resources/Tinting.h"
#include "Platform/Views/Popover/PopoverPlacement.h"

#include <QBitmap>
#include <QPainter>
#include <QPalette>
#include <QPen>
#include <QPolygonF>

#include <cmath>

namespace quor::platform {

namespace {

constexpr qreal cornerRadius = 7;
constexpr qreal arrowHalfWidth = 10;
constexpr qreal borderWidth = 1;
constexpr qreal shadowDrop = 2; // downwards
constexpr int shadowSteps = 5;
constexpr qreal shadowStepAlpha = 0.035;
constexpr qreal borderAlpha = 0.28; // of the text's colour

// The arrow that points upwards to `tip` of a body whose upper edge is `base`, turned to the given side.
QPolygonF arrow(const QRectF& body, RectEdge edge, qreal tip, qreal length)
{
    constexpr qreal overlap = 1; // so that the union leaves no seam
    const auto triangle = [&](QPointF base, QPointF outwards) {
        const QPointF along(outwards.y(), outwards.x());
        const QPointF root = base - outwards * overlap;
        const QPointF half = along * (arrowHalfWidth + overlap * arrowHalfWidth / length);
        return QPolygonF({root - half, base + outwards * length, root + half});
    };
    switch (edge) {
    case RectEdge::minX:
        return triangle({body.right(), tip}, {1, 0});
    case RectEdge::minY:
        return triangle({tip, body.bottom()}, {0, 1});
    case RectEdge::maxX:
        return triangle({body.left(), tip}, {-1, 0});
    case RectEdge::maxY:
        return triangle({tip, body.top()}, {0, -1});
    }
    Q_UNREACHABLE();
}

QPainterPath shape(QSize window, std::optional<RectEdge> edge, int tip, qreal border)
{
    constexpr qreal margin = PopoverFrame::margin;
    const qreal space = margin + border;
    const QRectF body = QRectF(QPointF(), window).adjusted(space, space, -space, -space);
    QPainterPath path;
    path.addRoundedRect(body, cornerRadius - border, cornerRadius - border);
    if (!edge)
        return path;
    // The border of the arrow's slopes is measured across them.
    const qreal slope = std::hypot(arrowHalfWidth, margin) / arrowHalfWidth;
    QPainterPath arrowPath;
    arrowPath.addPolygon(arrow(body, *edge, tip, margin + border - border * slope));
    arrowPath.closeSubpath();
    return path.united(arrowPath);
}

QColor borderColor(const QPalette& palette)
{
    const QColor window = palette.color(QPalette::Window), text = palette.color(QPalette::WindowText);
    const auto mixed = [](int from, int to) { return qRound(from * (1 - borderAlpha) + to * borderAlpha); };
    return {mixed(window.red(), text.red()), mixed(window.green(), text.green()),
        mixed(window.blue(), text.blue())};
}

} // namespace

PopoverFrame::PopoverFrame(QSize window, std::optional<RectEdge> edge, int tip)
    : outline_(shape(window, edge, tip, 0))
    , inside_(shape(window, edge, tip, borderWidth))
{
}

QRegion PopoverFrame::pixels(qreal scale) const
{
    // Painted, as a region made of the path's polygon would have its corners at whole pixels.
    const QPointF end = outline_.boundingRect().bottomRight() * scale;
    QBitmap bitmap(int(std::ceil(end.x())), int(std::ceil(end.y())));
    if (bitmap.isNull())
        return {};
    bitmap.clear();
    QPainter painter(&bitmap);
    painter.scale(scale, scale);
    painter.fillPath(outline_, Qt::color1);
    painter.end();
    return bitmap;
}

void PopoverFrame::paintTranslucent(QPainter& painter, const QPalette& palette) const
{
    painter.setRenderHint(QPainter::Antialiasing);
    const QPainterPath shadow = outline_.translated(0, shadowDrop);
    for (int step = 1; step <= shadowSteps; ++step) {
        const qreal width = qreal(2 * step * (margin - shadowDrop)) / shadowSteps;
        painter.strokePath(shadow,
            QPen(withAlpha(Qt::black, shadowStepAlpha), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    }
    painter.fillPath(outline_, borderColor(palette));
    painter.fillPath(inside_, palette.window());
}

void PopoverFrame::paintCutOut(QPainter& painter, const QPalette& palette) const
{
    // The window's shape has hard edges, so the border's colour has to reach beyond the outline.
    painter.fillRect(outline_.boundingRect().adjusted(-1, -1, 1, 1), borderColor(palette));
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillPath(inside_, palette.window());
}

} // namespace quor::platform
