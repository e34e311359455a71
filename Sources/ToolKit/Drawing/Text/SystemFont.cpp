// SPDX-License-Identifier: MIT
#include "ToolKit/Drawing/Text/SystemFont.h"

#include <QFontDatabase>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QHash>
#include <QScreen>

#include <algorithm>
#include <cmath>
#include <tuple>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

constexpr double pointsPerInch = 72;

// Of a font's points; a property of the desktop, and not of the screen's resolution.
double dotsPerInch()
{
    constexpr double usual = 96;
    const QScreen* screen = QGuiApplication::primaryScreen();
    return screen ? screen->logicalDotsPerInchY() : usual;
}

void setPixelSize(QFont& font, double size)
{
    constexpr double smallest = 1;
    constexpr double largest = 1000;
    const double pixels = size > smallest ? std::min(size, largest) : smallest;
    // A QFont has whole pixels only, but any number of points.
    if (pixels == std::floor(pixels))
        font.setPixelSize(static_cast<int>(pixels));
    else
        font.setPointSizeF(pixels * pointsPerInch / dotsPerInch());
}

bool hasEqualDigits(const QFont& font)
{
    // The width of a run includes hinting and kerning, the width of a single digit does not.
    constexpr int run = 8;
    constexpr double slack = 1.0 / 64; // the resolution of Qt's text measures
    const QFontMetricsF metrics(font);
    const double expected = metrics.horizontalAdvance(QString(run, u'0'));
    const QString others = u"123456789"_s;
    return std::all_of(others.begin(), others.end(), [&](QChar digit) {
        return std::abs(metrics.horizontalAdvance(QString(run, digit)) - expected) <= slack;
    });
}

QFont withEqualDigits(QFont font)
{
    if (hasEqualDigits(font))
        return font;
    for (const auto& family : {u"Noto Sans"_s, u"DejaVu Sans"_s, u"Liberation Sans"_s}) {
        font.setFamilies({family});
        if (QFontDatabase::hasFamily(family) && hasEqualDigits(font))
            return font;
    }
    font.setFamilies(QFontDatabase::systemFont(QFontDatabase::FixedFont).families());
    return font;
}

} // namespace

double pixelSize(const QFont& font)
{
    const double points = font.pointSizeF(); // -1 if the size is set in pixels
    return points > 0 ? points * dotsPerInch() / pointsPerInch : font.pixelSize();
}

QFont systemFont(double size, QFont::Weight weight)
{
    QFont font = QGuiApplication::font();
    setPixelSize(font, size);
    font.setWeight(weight);
    return font;
}

QFont monospacedDigitFont(double size, QFont::Weight weight)
{
    // The key is the whole wanted font, so that a change of the user's font has an effect. Only few sizes
    // and weights are in use, so the map stays small.
    static QHash<QFont, QFont> chosen;
    const QFont wanted = systemFont(size, weight);
    auto entry = chosen.find(wanted);
    if (entry == chosen.end())
        entry = chosen.insert(wanted, withEqualDigits(wanted));
    return *entry;
}

} // namespace quor::toolkit
