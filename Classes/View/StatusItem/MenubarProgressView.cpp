// SPDX-License-Identifier: MIT
#include "View/StatusItem/MenubarProgressView.h"

#include "ToolKit/Drawing/GraphicsContext.h"

#include <numbers>

namespace quor::helper {

namespace {

constexpr double arcWidth = 2.5;
constexpr double backgroundWidth = 2.3;
constexpr double fullTurn = 2 * std::numbers::pi;

} // namespace

void MenubarProgressView::setRing(const Ring& ring)
{
    if (ring == ring_)
        return;
    ring_ = ring;
    update();
}

void MenubarProgressView::draw(QPainter& painter) const
{
    const double side = frame().width();
    const QPointF center(side / 2, side / 2);
    const double radius = (side - arcWidth) * 0.5;
    const auto arc = [&](const QColor& color, double from, double to, double width) {
        toolkit::drawArc(
            painter, color, false, Qt::RoundCap, center, radius, from * fullTurn, to * fullTurn, width);
    };

    const double turnsEnd = ring_.progress > 1 ? 1 / ring_.progress : ring_.progress;
    if (ring_.backgroundColor) {
        arc(*ring_.backgroundColor, 0, 1, backgroundWidth);
        // The arc replaces what is below, so that a translucent one is not laid over the circle. With
        // no circle there is nothing to replace but what other widgets painted.
        painter.setCompositionMode(QPainter::CompositionMode_Source);
    }
    arc(ring_.color, 0, turnsEnd, arcWidth);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    if (ring_.progress > 1)
        arc(ring_.warningColor, turnsEnd, 1, arcWidth);
}

} // namespace quor::helper
