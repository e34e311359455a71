// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/Controls/MenuClickArea.h"

namespace quor::helper {

MenuClickArea::MenuClickArea(QWidget* parent)
    : MenuButton(parent)
{
    setFocusPolicy(Qt::NoFocus);
}

void MenuClickArea::paintEvent(QPaintEvent* /*event*/) { }

} // namespace quor::helper
