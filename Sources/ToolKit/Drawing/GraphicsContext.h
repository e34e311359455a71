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
/// Lengths are in the units of the painter, y points down. Every operation draws antialiased with the
/// painter's composition mode, opacity and transform, and leaves pen, brush and hints as they were. It has
/// no effect if the painter is not active, or if a length or an angle is not finite. `nullopt` as a line
/// width means a width of 1.
namespace quor::toolkit {

/// Draws an arc around `center`, filled (closed by its chord) or stroked.
///
/// Angles are in radians from twelve o'clock and grow clockwise on screen. If the end is below the start,
/// the arc is drawn from three o'clock to the absolute value of (end - pi/2), counted from three o'clock.
/// An arc of more than a turn is a full circle; an arc of no length is not drawn, not even with round caps.
void drawArc(QPainter& painter, const QColor& color, bool fill, Qt::PenCapStyle lineCap, QPointF center,
    double radius, double startAngle, double endAngle, double lineWidth);

/// Draws the ellipse that fits `rect`, filled or stroked. The stroke is centred on the edge of the ellipse.
void drawOval(
    QPainter& painter, const QColor& color, bool fill, std::optional<double> lineWidth, const QRectF& rect);

/// Draws a rectangle with round corners, filled or stroked. The radius is the same on both axes and limited
/// to half of each side.
void drawRoundedRect(QPainter& painter, const QColor& color, bool fill, double radius, const QRectF& rect);

/// Draws the outline of a rounded rectangle half a unit inside `rect`: 1 wide, in dashes of 2 and gaps of 4.
void drawDashedRoundedRect(QPainter& painter, const QColor& color, double radius, const QRectF& rect);

/// Draws a solid line.
void drawLine(QPainter& painter, const QColor& color, QPointF from, QPointF to,
    std::optional<double> width = std::nullopt);

/// Draws a dashed line. `lengths` are the lengths of dashes and gaps in turn, beginning with a dash at
/// `from`; a list of odd size is used twice in a row. Without a length above 0 the line is solid.
void drawDashedLine(QPainter& painter, const QColor& color, QPointF from, QPointF to,
    std::optional<double> width, const QVector<double>& lengths);

} // namespace quor::toolkit
