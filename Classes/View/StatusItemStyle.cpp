// SPDX-License-Identifier: MIT
#include "View/StatusItemStyle.h"

#include "ToolKit/Drawing/SystemFont.h"

#include <QPainterPath>

#include <cmath>

namespace quor::helper {

TextStyle TextStyle::of(const QFont& font)
{
    QPainterPath capital;
    capital.addText({}, font, QStringLiteral("H"));
    return {font, capital.boundingRect().height()};
}

StatusItemStyle StatusItemStyle::ofSystem()
{
    constexpr double size = 11;
    constexpr double smallSize = 8;
    const TextStyle text = TextStyle::of(toolkit::systemFont(size, QFont::Medium));
    return {
        .label = TextStyle::of(toolkit::monospacedDigitFont(size, QFont::Medium)),
        .smallLabel = TextStyle::of(toolkit::systemFont(smallSize, QFont::Medium)),
        .diameter = std::ceil(text.capHeight * 1.2),
    };
}

} // namespace quor::helper
