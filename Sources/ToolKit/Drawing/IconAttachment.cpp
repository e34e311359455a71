// SPDX-License-Identifier: MIT
#include "ToolKit/Drawing/IconAttachment.h"

#include <QFontMetricsF>
#include <QPainter>

#include <cmath>

namespace quor::toolkit {

namespace {

QImage tinted(const QImage& image, const QColor& color)
{
    QImage result = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&result);
    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    painter.fillRect(QRectF({}, result.deviceIndependentSize()), color);
    painter.end();
    return result;
}

} // namespace

double iconHeight(const QFont& font)
{
    return std::round(QFontMetricsF(font).capHeight() * 1.4);
}

platform::TextAttachment iconAttachment(const QImage& image, const QColor& color, const QFont& font)
{
    if (image.isNull())
        return {};
    const double height = iconHeight(font);
    const double width = height * image.width() / image.height();
    const double lift = (QFontMetricsF(font).capHeight() - height) / 2;
    return {tinted(image, color), QRectF(0, lift, width, height)};
}

} // namespace quor::toolkit
