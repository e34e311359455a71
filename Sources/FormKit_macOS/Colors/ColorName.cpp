// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Colors/ColorName.h"

#include "FormKit_macOS/FormMacOSResource.h"
#include "ToolKit/Colors/ColorOperations.h"

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace quor::formkit {

namespace {

QString text(const char* key)
{
    return FormMacOSResource::localizedString(QLatin1StringView(key));
}

const char* grayKey(double lightness)
{
    constexpr double mostBlack = 0.12, leastWhite = 0.95;
    if (lightness < mostBlack)
        return "FormColorBlack";
    return lightness > leastWhite ? "FormColorWhite" : "FormColorGray";
}

const char* hueKey(double degrees)
{
    struct Range {
        double end; ///< not included
        const char* key;
    };
    static constexpr auto ranges = std::to_array<Range>({{10, "FormColorRed"}, {25, "FormColorRedOrange"},
        {45, "FormColorOrange"}, {70, "FormColorYellow"}, {100, "FormColorYellowGreen"},
        {150, "FormColorGreen"}, {185, "FormColorTurquoise"}, {210, "FormColorSkyBlue"},
        {245, "FormColorBlue"}, {290, "FormColorViolet"}, {345, "FormColorPink"}});
    const auto* const found
        = std::find_if(ranges.begin(), ranges.end(), [&](const Range& range) { return degrees < range.end; });
    return found == ranges.end() ? "FormColorRed" : found->key;
}

QString nameOf(const QColor& color)
{
    constexpr double leastChroma = 0.1; // less looks gray
    constexpr double leastLight = 0.8, mostDark = 0.3, mostBrown = 0.38;
    const auto [least, most] = std::minmax({color.redF(), color.greenF(), color.blueF()});
    const double lightness = (least + most) / 2;
    const bool isGray = most - least < leastChroma;
    const double degrees = isGray ? 0 : color.hslHueF() * 360;
    const bool isBrown = !isGray && degrees >= 10 && degrees < 45 && lightness < mostBrown;
    QString name = text(isBrown ? "FormColorBrown" : isGray ? grayKey(lightness) : hueKey(degrees));
    const bool isExtreme = isBrown || (isGray && name != text("FormColorGray"));
    if (isExtreme || (lightness >= mostDark && lightness <= leastLight))
        return name;
    return FormMacOSResource::resourceBundle().localizedString(
        lightness < mostDark ? u"FormColorDark"_s : u"FormColorLight"_s, {name});
}

} // namespace

QString colorName(const QColor& color)
{
    return color.isValid() ? nameOf(color.toRgb()) : text("FormColorNone");
}

QString colorNameAndValue(const QColor& color)
{
    const QString name = colorName(color);
    return color.isValid() ? u"%1 (%2)"_s.arg(name, toolkit::hexString(color)) : name;
}

} // namespace quor::formkit
