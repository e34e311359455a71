// SPDX-License-Identifier: MIT
#include "ToolKit/Colors/ColorOperations.h"

#include "Platform/Concurrency/MainQueue.h"
#include "Platform/Resources/DynamicColor.h"
#include "Platform/Services/Appearance.h"

#include <QRgba64>

#include <algorithm>
#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

struct Components {
    double red = 0;
    double green = 0;
    double blue = 0;
    double alpha = 0;
};

// In this order of comparison a value that is not a number becomes 0.
double withinUnit(double value)
{
    return value > 0 ? std::min(value, 1.0) : 0.0;
}

QColor colorOf(const Components& components)
{
    return QColor::fromRgbF(static_cast<float>(withinUnit(components.red)),
        static_cast<float>(withinUnit(components.green)), static_cast<float>(withinUnit(components.blue)),
        static_cast<float>(withinUnit(components.alpha)));
}

QRgba64 rgba(const QColor& color)
{
    return color.isValid() ? color.rgba64() : QRgba64::fromRgba64(0, 0, 0, 0);
}

Components componentsOf(const QColor& color)
{
    constexpr double full = 0xFFFF;
    const auto value = rgba(color);
    return {value.red() / full, value.green() / full, value.blue() / full, value.alpha() / full};
}

// QColor stores a channel of n/255 as 257 n, from which whole numbers compute n exactly. From the float that
// QColor returns the result could be n - 1.
quint32 truncatedByte(quint16 channel)
{
    return channel * 255U / 0xFFFFU;
}

std::optional<quint32> hexDigit(QChar character)
{
    const char16_t c = character.unicode();
    if (c >= u'0' && c <= u'9')
        return c - u'0';
    if (c >= u'a' && c <= u'f')
        return c - u'a' + 10;
    if (c >= u'A' && c <= u'F')
        return c - u'A' + 10;
    return std::nullopt;
}

// The relative luminance of the Web Content Accessibility Guidelines.
double relativeLuminance(const QColor& color)
{
    const auto linear = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    const auto own = componentsOf(color);
    return 0.2126 * linear(own.red) + 0.7152 * linear(own.green) + 0.0722 * linear(own.blue);
}

double contrast(const QColor& a, const QColor& b)
{
    constexpr double glare = 0.05;
    const auto [darker, lighter] = std::minmax({relativeLuminance(a), relativeLuminance(b)});
    return (lighter + glare) / (darker + glare);
}

} // namespace

QColor colorWithHexString(QStringView text)
{
    while (text.startsWith(u'#'))
        text = text.sliced(1);
    if (text.startsWith("0x"_L1, Qt::CaseInsensitive))
        text = text.sliced(2);
    // A number that is too large becomes the largest one, so white.
    quint64 value = 0;
    for (const QChar character : text) {
        const auto digit = hexDigit(character);
        if (!digit)
            break;
        value = value >> 60 == 0 ? value << 4 | *digit : ~quint64(0);
    }
    return colorWithHexValue(static_cast<quint32>(value), 1);
}

QColor colorWithHexValue(quint32 value, double alpha)
{
    return colorOf({static_cast<double>(value >> 16 & 0xFF) / 255.0,
        static_cast<double>(value >> 8 & 0xFF) / 255.0, static_cast<double>(value & 0xFF) / 255.0, alpha});
}

QColor colorWithRedFactor(
    const QColor& color, double redFactor, double greenFactor, double blueFactor, double alphaFactor)
{
    const auto own = componentsOf(color);
    return colorOf(
        {own.red * redFactor, own.green * greenFactor, own.blue * blueFactor, own.alpha * alphaFactor});
}

QColor mixWithColor(const QColor& color, const QColor& other, double amount)
{
    const auto mix = [amount](double from, double to) { return from * (1 - amount) + to * amount; };
    const auto a = componentsOf(color);
    const auto b = componentsOf(other);
    return colorOf({mix(a.red, b.red), mix(a.green, b.green), mix(a.blue, b.blue), mix(a.alpha, b.alpha)});
}

QColor mixWithColorWithHexValue(const QColor& color, quint32 value, double alpha, double amount)
{
    return mixWithColor(color, colorWithHexValue(value, alpha), amount);
}

quint32 hexColor(const QColor& color)
{
    const auto value = rgba(color);
    return truncatedByte(value.red()) << 16 | truncatedByte(value.green()) << 8 | truncatedByte(value.blue());
}

QString hexString(const QColor& color)
{
    return u'#' + QString::number(hexColor(color), 16).rightJustified(6, u'0').toUpper();
}

QColor contrastColor(const QColor& color, const QColor& dark, const QColor& light, double threshold)
{
    const auto own = componentsOf(color);
    const double luminance = 0.2126 * own.red + 0.7152 * own.green + 0.0722 * own.blue;
    return luminance > threshold ? light : dark;
}

QColor readableColor(const QColor& color, const QColor& background)
{
    constexpr double leastContrast = 4.5;
    constexpr int steps = 50;
    const QColor white = colorWithHexValue(0xFFFFFF, 1), black = colorWithHexValue(0, 1);
    const QColor extreme = contrast(white, background) > contrast(black, background) ? white : black;
    for (int step = 0; step < steps; ++step) {
        const QColor mixture = mixWithColor(color, extreme, double(step) / steps);
        if (contrast(mixture, background) >= leastContrast)
            return mixture;
    }
    return extreme;
}

QColor resolvedColor(const QColor& color, double alpha)
{
    auto own = componentsOf(color);
    own.alpha = alpha;
    return colorOf(own);
}

QColor resolvedColor(
    const platform::DynamicColor& color, double alpha, const platform::Appearance& application)
{
    QColor resolved;
    platform::MainQueue::sync(
        [&] { resolved = resolvedColor(color.resolved(application.effectiveAppearance()), alpha); });
    return resolved;
}

} // namespace quor::toolkit
