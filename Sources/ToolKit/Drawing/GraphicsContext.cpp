// SPDX-License-Identifier: MIT
#include "ToolKit/Drawing/GraphicsContext.h"

#include <QPainterPath>
#include <QPen>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <numbers>

namespace quor::toolkit {

namespace {

constexpr double defaultLineWidth = 1;

bool areFinite(std::initializer_list<double> values)
{
    return std::all_of(values.begin(), values.end(), [](double value) { return std::isfinite(value); });
}

bool isDrawable(const QRectF& rect)
{
    return areFinite({rect.x(), rect.y(), rect.width(), rect.height()}) && !rect.isEmpty();
}

// Switches antialiasing on for its lifetime. Paths are filled and stroked without the painter's own pen and
// brush, so the hint is all that must be restored.
class Antialiasing final {
public:
    explicit Antialiasing(QPainter& painter)
        : painter_(painter)
        , before_(painter.testRenderHint(QPainter::Antialiasing))
    {
        painter_.setRenderHint(QPainter::Antialiasing);
    }
    ~Antialiasing() { painter_.setRenderHint(QPainter::Antialiasing, before_); }
    Antialiasing(const Antialiasing&) = delete;
    Antialiasing& operator=(const Antialiasing&) = delete;

private:
    QPainter& painter_;
    bool before_;
};

QPen penOf(const QColor& color, double width, Qt::PenCapStyle cap = Qt::FlatCap)
{
    return {color, width, Qt::SolidLine, cap, Qt::MiterJoin};
}

void stroke(QPainter& painter, const QPainterPath& path, const QPen& pen)
{
    if (!painter.isActive())
        return;
    const Antialiasing antialiasing(painter);
    painter.strokePath(path, pen);
}

void fillOrStroke(QPainter& painter, const QPainterPath& path, bool fill, const QPen& pen)
{
    if (!fill) {
        stroke(painter, path, pen);
    } else if (painter.isActive()) {
        const Antialiasing antialiasing(painter);
        painter.fillPath(path, pen.color());
    }
}

// A pen measures its dashes in line widths.
void setDashes(QPen& pen, const QVector<double>& lengths)
{
    const double unit = pen.widthF() > 0 ? pen.widthF() : defaultLineWidth;
    QVector<double> pattern;
    double sum = 0;
    for (const double length : lengths) {
        const double dash = std::isfinite(length) ? std::max(length, 0.0) : 0.0;
        sum += dash;
        pattern.append(dash / unit);
    }
    if (pattern.size() % 2 != 0)
        pattern += QVector<double>(pattern);
    if (sum > 0)
        pen.setDashPattern(pattern);
}

void strokeLine(QPainter& painter, QPointF from, QPointF to, const QPen& pen)
{
    QPainterPath path(from);
    path.lineTo(to);
    stroke(painter, path, pen);
}

bool isDrawable(QPointF from, QPointF to, double width)
{
    return areFinite({from.x(), from.y(), to.x(), to.y(), width}) && width >= 0;
}

} // namespace

void drawArc(QPainter& painter, const QColor& color, bool fill, Qt::PenCapStyle lineCap, QPointF center,
    double radius, double startAngle, double endAngle, double lineWidth)
{
    if (!areFinite({center.x(), center.y(), radius, startAngle, endAngle, lineWidth}) || radius <= 0
        || lineWidth < 0)
        return;
    constexpr double quarterTurn = std::numbers::pi / 2;
    double start = startAngle - quarterTurn;
    double end = endAngle - quarterTurn;
    if (end < start) {
        start = 0;
        end = std::abs(end);
    }
    if (end <= start)
        return;

    constexpr double fullTurn = 360;
    constexpr double roundingSlack = 1e-9;
    const double degrees = (end - start) * 180 / std::numbers::pi;
    const QRectF circle(center.x() - radius, center.y() - radius, 2 * radius, 2 * radius);
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    if (degrees >= fullTurn - roundingSlack) {
        path.addEllipse(circle);
    } else {
        // Qt measures counter-clockwise from three o'clock.
        const double from = -std::remainder(start * 180 / std::numbers::pi, fullTurn);
        path.arcMoveTo(circle, from);
        path.arcTo(circle, from, -degrees);
    }
    fillOrStroke(painter, path, fill, penOf(color, lineWidth, lineCap));
}

void drawOval(
    QPainter& painter, const QColor& color, bool fill, std::optional<double> lineWidth, const QRectF& rect)
{
    const double width = lineWidth.value_or(defaultLineWidth);
    if (!isDrawable(rect) || !std::isfinite(width) || width < 0)
        return;
    QPainterPath path;
    path.addEllipse(rect);
    fillOrStroke(painter, path, fill, penOf(color, width));
}

void drawRoundedRect(QPainter& painter, const QColor& color, bool fill, double radius, const QRectF& rect)
{
    if (!isDrawable(rect) || !std::isfinite(radius))
        return;
    QPainterPath path;
    path.addRoundedRect(rect, radius, radius);
    fillOrStroke(painter, path, fill, penOf(color, defaultLineWidth));
}

void drawDashedRoundedRect(QPainter& painter, const QColor& color, double radius, const QRectF& rect)
{
    const QRectF inner = rect.adjusted(0.5, 0.5, -0.5, -0.5);
    if (!isDrawable(inner) || !std::isfinite(radius))
        return;
    QPainterPath path;
    path.addRoundedRect(inner, radius, radius);
    QPen pen = penOf(color, defaultLineWidth);
    setDashes(pen, {2, 4});
    stroke(painter, path, pen);
}

void drawLine(QPainter& painter, const QColor& color, QPointF from, QPointF to, std::optional<double> width)
{
    const double lineWidth = width.value_or(defaultLineWidth);
    if (isDrawable(from, to, lineWidth))
        strokeLine(painter, from, to, penOf(color, lineWidth));
}

void drawDashedLine(QPainter& painter, const QColor& color, QPointF from, QPointF to,
    std::optional<double> width, const QVector<double>& lengths)
{
    const double lineWidth = width.value_or(defaultLineWidth);
    if (!isDrawable(from, to, lineWidth))
        return;
    QPen pen = penOf(color, lineWidth);
    setDashes(pen, lengths);
    strokeLine(painter, from, to, pen);
}

} // namespace quor::toolkit
