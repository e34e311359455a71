// SPDX-License-Identifier: MIT
#include "ToolKit/Drawing/Text/IconAttachment.h"

#include "Platform/Resources/Tinting.h"

#include <QFontMetricsF>

#include <cmath>

namespace quor::toolkit {

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
    return {platform::tinted(image, color, platform::Tint::coversColors), QRectF(0, lift, width, height)};
}

} // namespace quor::toolkit
