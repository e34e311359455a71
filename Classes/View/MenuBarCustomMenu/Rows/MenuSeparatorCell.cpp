// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/Rows/MenuSeparatorCell.h"

#include <QPainter>

namespace quor::helper {

MenuSeparatorCell::MenuSeparatorCell(QWidget* parent)
    : QWidget(parent)
{
}

void MenuSeparatorCell::paintEvent(QPaintEvent* /*event*/)
{
    constexpr float faint = 0.2F;
    QColor color = palette().color(foregroundRole());
    color.setAlphaF(faint);
    QPainter(this).fillRect(0, height() / 2, width(), 1, color);
}

} // namespace quor::helper
