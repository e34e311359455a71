// SPDX-License-Identifier: MIT
#include "View/StatusItem/MenubarClockView.h"

#include "ToolKit/Drawing/GraphicsContext.h"

#include <QPainterPath>

#include <cmath>
#include <numbers>

namespace quor::helper {

void MenubarClockView::draw(QPainter& painter, QSizeF size) const
{
    constexpr double lineWidth = 1.5;
    constexpr double fullTurn = 2 * std::numbers::pi;
    const QRectF bounds({}, size);
    toolkit::drawOval(painter, Qt::white, false, lineWidth, bounds);

    const double minute = time_.minute / 60.0;
    const double hour = (time_.hour % 12) / 12.0;
    QPainterPath hands;
    const auto addHand = [&](double turn, double length) {
        const double angle = fullTurn * turn;
        hands.moveTo(bounds.center());
        hands.lineTo(bounds.center() + QPointF(std::sin(angle), -std::cos(angle)) * bounds.width() * length);
    };
    addHand(hour + minute / 12, 0.15);
    addHand(minute, 0.25);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(hands, QPen(Qt::white, lineWidth, Qt::SolidLine, Qt::RoundCap));
}

} // namespace quor::helper
