// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/Controls/MenuButton.h"

namespace quor::helper {

MenuButton::MenuButton(QWidget* parent)
    : QAbstractButton(parent)
{
    setBackgroundRole(QPalette::NoRole); // inherited from the row
    setForegroundRole(QPalette::NoRole);
}

void MenuButton::cancelPress()
{
    isPressCancelled_ = true;
    setDown(false);
}

void MenuButton::mousePressEvent(QMouseEvent* event)
{
    isPressCancelled_ = false;
    QAbstractButton::mousePressEvent(event);
}

void MenuButton::mouseMoveEvent(QMouseEvent* event)
{
    // A held pointer that comes back to a button presses it again.
    if (!isPressCancelled_)
        QAbstractButton::mouseMoveEvent(event);
}

void MenuButton::hideEvent(QHideEvent* event)
{
    cancelPress(); // its row has left the table, and Qt still sends it the release
    QAbstractButton::hideEvent(event);
}

} // namespace quor::helper
