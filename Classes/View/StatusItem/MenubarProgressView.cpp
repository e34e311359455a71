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

void MenubarProgressView::setRing(const StatusItemPlan::Ring& ring, const QColor& warningColor)
{
    ring_ = ring;
    warningColor_ = warningColor;
}

void MenubarProgressView::draw(QPainter& painter, QSizeF size) const
{
    const QPointF center(size.width() / 2, size.width() / 2);
    const double radius = (size.width() - arcWidth) * 0.5;
    const auto arc = [&](const QColor& color, double from, double to, double width) {
        toolkit::drawArc(
            painter, color, false, Qt::RoundCap, center, radius, from * fullTurn, to * fullTurn, width);
    };

    const double turnsEnd = ring_.progress > 1 ? 1 / ring_.progress : ring_.progress;
    if (ring_.backgroundColor) {
        arc(*ring_.backgroundColor, 0, 1, backgroundWidth);
        // A translucent arc replaces the circle instead of being laid over it. Without a circle the arc
        // must not replace anything, or a clear one would erase the pill.
        painter.setCompositionMode(QPainter::CompositionMode_Source);
    }
    arc(ring_.color, 0, turnsEnd, arcWidth);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    if (ring_.progress > 1)
        arc(warningColor_, turnsEnd, 1, arcWidth);
}

} // namespace quor::helper
