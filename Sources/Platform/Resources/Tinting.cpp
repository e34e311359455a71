// SPDX-License-Identifier: MIT
#include "Platform/Resources/Tinting.h"

#include <QPainter>

namespace quor::platform {

QImage tinted(const QImage& image, const QColor& color, Tint tint)
{
    QImage result = image.convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (result.isNull())
        return result;
    QPainter painter(&result);
    painter.setCompositionMode(tint == Tint::coversColors ? QPainter::CompositionMode_SourceAtop
                                                          : QPainter::CompositionMode_SourceIn);
    painter.fillRect(QRectF({}, result.deviceIndependentSize()), color);
    painter.end();
    return result;
}

QImage TemplateImage::shownIn(const QColor& color) const
{
    return isTemplate ? tinted(pixels, color) : pixels;
}

bool operator==(const TemplateImage& a, const TemplateImage& b)
{
    return a.isTemplate == b.isTemplate && a.pixels.devicePixelRatio() == b.pixels.devicePixelRatio()
        && a.pixels == b.pixels; // compares the bytes last
}

} // namespace quor::platform
