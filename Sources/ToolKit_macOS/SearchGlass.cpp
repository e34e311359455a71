// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/SearchGlass.h"

#include <QPainter>

namespace quor::toolkit {

void drawSearchGlass(QPainter& painter, const QRectF& frame, const QColor& color)
{
    constexpr double strokeShare = 1.0 / 7;
    constexpr double ringShare = 0.7;
    constexpr double handleStart = 0.88; // of the ring's square, where its circle is
    const double ring = frame.width() * ringShare;
    painter.setPen(QPen(color, frame.width() * strokeShare, Qt::SolidLine, Qt::RoundCap));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(QRectF(frame.topLeft(), QSizeF(ring, ring)));
    painter.drawLine(frame.topLeft() + QPointF(ring, ring) * handleStart, frame.bottomRight());
}

} // namespace quor::toolkit
