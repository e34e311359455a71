// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/Rows/MenuSeparatorCell.h"

#include "Platform/Resources/Tinting.h"

#include <QPainter>

namespace quor::helper {

MenuSeparatorCell::MenuSeparatorCell(QWidget* parent)
    : QWidget(parent)
{
}

void MenuSeparatorCell::paintEvent(QPaintEvent* /*event*/)
{
    constexpr double faint = 0.2;
    const QColor color = platform::withAlpha(palette().color(foregroundRole()), faint);
    QPainter(this).fillRect(0, height() / 2, width(), 1, color);
}

} // namespace quor::helper
