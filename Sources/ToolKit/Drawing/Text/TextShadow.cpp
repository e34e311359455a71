// SPDX-License-Identifier: MIT
#include "ToolKit/Drawing/Text/TextShadow.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <vector>

namespace quor::toolkit {

namespace {

constexpr double blur = 2;

std::vector<double> gaussian(double deviation)
{
    const int radius = static_cast<int>(std::ceil(3 * deviation));
    std::vector<double> weights;
    double sum = 0;
    for (int i = -radius; i <= radius; ++i) {
        weights.push_back(std::exp(-i * i / (2 * deviation * deviation)));
        sum += weights.back();
    }
    for (double& weight : weights)
        weight /= sum;
    return weights;
}

// Blurs along rows and transposes the result, so that two passes blur in both directions.
QImage blurredRowsTransposed(const QImage& mask, const std::vector<double>& weights)
{
    const int radius = static_cast<int>(weights.size() / 2);
    const double* middle = weights.data() + radius;
    QImage result(mask.height(), mask.width(), QImage::Format_Alpha8);
    for (int y = 0; y < mask.height(); ++y) {
        const uchar* row = mask.constScanLine(y);
        for (int x = 0; x < mask.width(); ++x) {
            double sum = 0;
            for (int i = std::max(-radius, -x); i <= std::min(radius, mask.width() - 1 - x); ++i)
                sum += middle[i] * row[x + i];
            result.scanLine(x)[y] = static_cast<uchar>(std::lround(sum));
        }
    }
    return result;
}

QImage shadowOf(const QImage& picture, const QColor& color, double deviation)
{
    const auto weights = gaussian(deviation);
    const QImage mask = blurredRowsTransposed(
        blurredRowsTransposed(picture.convertToFormat(QImage::Format_Alpha8), weights), weights);
    QImage shadow(mask.size(), QImage::Format_ARGB32_Premultiplied);
    shadow.fill(color);
    QPainter painter(&shadow);
    painter.setCompositionMode(QPainter::CompositionMode_DestinationIn);
    painter.drawImage(0, 0, mask);
    painter.end();
    return shadow;
}

} // namespace

void drawSoftShadow(
    QPainter& painter, const QRectF& area, const QColor& color, const std::function<void(QPainter&)>& draw)
{
    const QTransform transform = painter.combinedTransform();
    const double zoom = std::sqrt(std::abs(transform.determinant()));
    const double scale = zoom * painter.device()->devicePixelRatioF();
    if (!std::isfinite(scale) || scale <= 0)
        return;
    constexpr QMarginsF spread(2 * blur, 2 * blur, 2 * blur, 2 * blur);
    const QRectF visible = transform.inverted().mapRect(QRectF(painter.viewport())).marginsAdded(spread);
    const QRect pixels = QTransform::fromScale(scale, scale)
                             .mapRect(area.marginsAdded(spread).intersected(visible))
                             .toAlignedRect();
    if (pixels.isEmpty())
        return;

    QImage picture(pixels.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    {
        QPainter inner(&picture);
        inner.setFont(painter.font());
        inner.setPen(painter.pen());
        inner.translate(-pixels.topLeft());
        inner.scale(scale, scale);
        draw(inner);
    }
    const QRectF target(
        pixels.x() / scale, pixels.y() / scale, pixels.width() / scale, pixels.height() / scale);
    // The standard deviation is half of the blur.
    painter.drawImage(target, shadowOf(picture, color, blur / 2 * scale));
}

} // namespace quor::toolkit
