// SPDX-License-Identifier: MIT
#include "View/StatusItem/StatusItemStyle.h"

#include "ToolKit/Drawing/Text/SystemFont.h"

#include <QPainterPath>

#include <cmath>

namespace quor::helper {

namespace {

constexpr double textSize = 11;
constexpr double smallTextSize = 8;

// Measured on the outline, since font metrics round up to whole pixels.
double capHeightOf(const QFont& font)
{
    QPainterPath capital;
    capital.addText({}, font, QStringLiteral("H"));
    return capital.boundingRect().height();
}

} // namespace

StatusItemStyle StatusItemStyle::ofSystem()
{
    const QFont digits = toolkit::monospacedDigitFont(textSize, QFont::Medium);
    const double capHeight = capHeightOf(toolkit::systemFont(textSize, QFont::Medium));
    return {
        .label = {digits, capHeightOf(digits)},
        // Computed, so that the small font is loaded only when it is used.
        .smallLabel
        = {toolkit::systemFont(smallTextSize, QFont::Medium), capHeight * smallTextSize / textSize},
        .diameter = std::ceil(capHeight * 1.2),
    };
}

} // namespace quor::helper
