// SPDX-License-Identifier: MIT
#include "ToolKit/Drawing/Text/ComposedLabel.h"

#include "ToolKit/Drawing/Text/IconAttachment.h"

#include <QGuiApplication>

using quor::platform::AttributedString;

namespace quor::toolkit {

namespace {

AttributedString icons(
    const QStringList& names, const QColor& tint, const QFont& font, const platform::Bundle& images)
{
    // Only the height limits the size.
    const QSizeF room(10'000, iconHeight(font));
    AttributedString result;
    for (const auto& name : names) {
        const QImage image = images.image(name, room, qGuiApp->devicePixelRatio());
        if (image.isNull())
            continue;
        if (!result.isEmpty())
            result.append(AttributedString(QStringLiteral(" ")));
        result.append(AttributedString(iconAttachment(image, tint, font)));
    }
    return result;
}

} // namespace

AttributedString composedLabel(const AttributedString& text, const QStringList& imageNames,
    const QColor& tintColor, const QFont& font, bool imagesFirst, const platform::Bundle& images)
{
    const AttributedString blank(QStringLiteral(" "));
    const AttributedString pictures = icons(imageNames, tintColor, font, images);
    AttributedString label = imagesFirst ? pictures : text;
    label.append(blank);
    label.append(imagesFirst ? text : pictures);
    label.setParagraphStyle({imagesFirst ? platform::TextAlignment::right : platform::TextAlignment::left,
        platform::LineBreakMode::byTruncatingTail});
    return label;
}

} // namespace quor::toolkit
