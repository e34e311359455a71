// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/Drawing/MenuFont.h"

#include "ToolKit/Drawing/Text/SystemFont.h"

#include <QApplication>

#include <algorithm>
#include <cmath>

namespace quor::helper {

namespace {

double menuFontSize()
{
    return toolkit::pixelSize(QApplication::font("QMenu"));
}

} // namespace

QFont menuFont()
{
    return toolkit::monospacedDigitFont(std::round(menuFontSize()), QFont::Normal);
}

QFont smallMenuFont()
{
    return toolkit::monospacedDigitFont(std::round(0.9 * menuFontSize()), QFont::Normal);
}

QFont smallButtonFont()
{
    constexpr double size = 11;
    constexpr double usualMenuSize = 13;
    constexpr double largestFactor = 1.5; // so that a row of buttons fits into the widest menu
    const double factor = std::clamp(std::round(menuFontSize()) / usualMenuSize, 1.0, largestFactor);
    return toolkit::systemFont(size * factor, QFont::Normal);
}

} // namespace quor::helper
