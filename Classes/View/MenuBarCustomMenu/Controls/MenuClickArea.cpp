// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/Controls/MenuClickArea.h"

namespace quor::helper {

MenuClickArea::MenuClickArea(QWidget* parent)
    : QAbstractButton(parent)
{
    setFocusPolicy(Qt::NoFocus);
    // As what lies below, so that its text colour is found through here too.
    setBackgroundRole(QPalette::NoRole);
    setForegroundRole(QPalette::NoRole);
}

void MenuClickArea::forgetPress()
{
    isPressForgotten_ = true;
    setDown(false);
}

void MenuClickArea::paintEvent(QPaintEvent* /*event*/) { }

void MenuClickArea::mousePressEvent(QMouseEvent* event)
{
    isPressForgotten_ = false;
    QAbstractButton::mousePressEvent(event);
}

void MenuClickArea::mouseMoveEvent(QMouseEvent* event)
{
    // Coming back to it would press it again.
    if (!isPressForgotten_)
        QAbstractButton::mouseMoveEvent(event);
}

} // namespace quor::helper
