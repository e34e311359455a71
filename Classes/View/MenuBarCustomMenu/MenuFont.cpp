// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/MenuFont.h"

#include "ToolKit/Drawing/SystemFont.h"

#include <QApplication>
#include <QFontInfo>

#include <algorithm>
#include <cmath>

namespace quor::helper {

namespace {

int menuFontSize()
{
    return QFontInfo(QApplication::font("QMenu")).pixelSize();
}

} // namespace

QFont menuFont()
{
    return toolkit::monospacedDigitFont(menuFontSize(), QFont::Normal);
}

QFont smallMenuFont()
{
    return toolkit::monospacedDigitFont(std::round(0.9 * menuFontSize()), QFont::Normal);
}

QFont smallButtonFont()
{
    constexpr double size = 11;
    constexpr double usualMenuSize = 13;
    return toolkit::systemFont(size * std::max(1.0, menuFontSize() / usualMenuSize), QFont::Normal);
}

} // namespace quor::helper
