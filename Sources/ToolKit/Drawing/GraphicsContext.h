// SPDX-License-Identifier: MIT
#pragma once

#include <QColor>
#include <QPainter>
#include <QPointF>
#include <QRectF>
#include <QVector>

#include <optional>

/// Shapes on a painter, one call each: arcs, ovals, round rectangles, lines, solid or dashed.
///
/// Lengths are the painter's own units, y points down. Every operation draws antialiased with the
/// painter's composition mode, opacity and transform, and leaves pen, brush and hints as they were.
/// With a painter that is not active, or with a length or angle that is not finite, nothing is
/// drawn. No line width given means a width of 1.
namespace quor::toolkit {

/// An arc round `center`, filled (closed by its chord) or stroked.
///
/// Angles are radians from twelve o'clock; a growing angle runs clockwise on screen. An arc that
/// ends before it starts is drawn, after both were shifted by a quarter turn to three o'clock, from
/// there to the absolute value of its end. More than a turn is a full circle; no angle at all draws
/// nothing, whatever the line cap.
void drawArc(QPainter& painter, const QColor& color, bool fill, Qt::PenCapStyle lineCap, QPointF center,
    double radius, double startAngle, double endAngle, double lineWidth);

/// The ellipse that fits `rect`. A stroke runs centred on its edge.
void drawOval(
    QPainter& painter, const QColor& color, bool fill, std::optional<double> lineWidth, const QRectF& rect);

/// A rectangle with the same radius at each corner and on both axes, at most half of each side.
void drawRoundedRect(QPainter& painter, const QColor& color, bool fill, double radius, const QRectF& rect);

/// The outline of a rounded rectangle half a unit inside `rect`, 1 wide, in dashes of 2 and gaps of 4.
void drawDashedRoundedRect(QPainter& painter, const QColor& color, double radius, const QRectF& rect);

void drawLine(QPainter& painter, const QColor& color, QPointF from, QPointF to,
    std::optional<double> width = std::nullopt);

/// `lengths` are those of dashes and gaps in turn, beginning with a dash at `from`; an odd list is
/// run through twice. With no lengths, or with none above 0, the line is solid.
void drawDashedLine(QPainter& painter, const QColor& color, QPointF from, QPointF to,
    std::optional<double> width, const QVector<double>& lengths);

} // namespace quor::toolkit
