// SPDX-License-Identifier: MIT
#include "ToolKit/Drawing/StripePattern.h"

#include <QImage>
#include <QPainter>
#include <QTransform>

#include <algorithm>
#include <cmath>

namespace quor::toolkit {

QBrush stripePattern(const QColor& color, double devicePixelRatio)
{
    constexpr QSizeF tile(60, 50);
    constexpr QRectF bar(-5, -75, 10, 150);
    constexpr double lean = 35;
    constexpr double largestRatio = 8;

    // A tile has whole pixels at any ratio, so that the tiles meet.
    const double ratio = devicePixelRatio > 1 ? std::min(devicePixelRatio, largestRatio) : 1;
    QImage image((tile * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    const double xScale = image.width() / tile.width();
    const double yScale = image.height() / tile.height();
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(xScale, yScale);
        for (const double left : {-30.0, 0.0, 30.0}) {
            painter.save();
            painter.translate(left + bar.width() / 2, tile.height());
            painter.rotate(lean);
            painter.fillRect(bar, color);
            painter.restore();
        }
    }
    QBrush brush(image);
    brush.setTransform(QTransform::fromScale(1 / xScale, 1 / yScale));
    return brush;
}

} // namespace quor::toolkit
