// SPDX-License-Identifier: MIT
#include "ToolKit/Drawing/Text/CustomFontSizeModifier.h"

#include <QFontInfo>
#include <QGuiApplication>
#include <QWidget>

#include <algorithm>

namespace quor::toolkit {

namespace {

// In proportion to a body of 13 points.
double proportion(TextStyle style)
{
    constexpr double body = 13;
    switch (style) {
    case TextStyle::largeTitle:
        return 26 / body;
    case TextStyle::title:
        return 22 / body;
    case TextStyle::title2:
        return 17 / body;
    case TextStyle::title3:
        return 15 / body;
    case TextStyle::callout:
        return 12 / body;
    case TextStyle::subheadline:
        return 11 / body;
    case TextStyle::footnote:
    case TextStyle::caption:
    case TextStyle::caption2:
        return 10 / body;
    case TextStyle::headline:
    case TextStyle::body:
        break;
    }
    return 1;
}

} // namespace

double preferredPointSize(TextStyle style)
{
    const QFont font = QGuiApplication::font();
    const double points = font.pointSizeF();
    // The info has the size in points also if it is set in pixels, but of whole pixels in any case.
    return (points > 0 ? points : QFontInfo(font).pointSizeF()) * proportion(style);
}

QFont CustomFontSizeModifier::font() const
{
    constexpr double smallest = 1;
    constexpr double largest = 1000;
    const double size = preferredPointSize(style) * sizeFactor;
    QFont font = QGuiApplication::font();
    font.setPointSizeF(size > smallest ? std::min(size, largest) : smallest);
    font.setWeight(weight);
    return font;
}

void CustomFontSizeModifier::apply(QWidget& content) const
{
    content.setFont(font());
}

} // namespace quor::toolkit
