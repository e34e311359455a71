// SPDX-License-Identifier: MIT
#include "Platform/Linux/Strip/StripWindow.h"

#include "Platform/Linux/X11/X11Window.h"

#include <QPaintEvent>
#include <QPainter>

namespace quor::platform {

StripWindow::StripWindow()
    : QWidget(nullptr,
        Qt::Window | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint | Qt::WindowDoesNotAcceptFocus)
{
    setAttribute(Qt::WA_OpaquePaintEvent);
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
}

void StripWindow::setBackground(const QColor& color)
{
    background_ = color;
    update();
}

void StripWindow::place(QScreen& screen, const QRect& frame)
{
    setScreen(&screen);
    if (!internalWinId())
        createNativeWindow(frame);
    // At a fractional scale Qt has the window manager size windows in steps of several pixels. Steps are
    // counted from the base size, so with this one no step makes the window smaller.
    setBaseSize(frame.size());
    setGeometry(frame);
}

// The window is created in its place, since a window manager could remember an earlier one.
void StripWindow::createNativeWindow(const QRect& frame)
{
    setGeometry(frame);
    forgetContentOnResize(winId());
    setAttribute(Qt::WA_X11NetWmWindowTypeDock); // ignored while there is no native window
}

void StripWindow::appear()
{
    if (isVisible())
        return;
    show();
    setOnAllDesktops(winId());
}

void StripWindow::reserve(const TopStrut& strut)
{
    if (strut == strut_)
        return;
    strut_ = strut;
    setTopStrut(winId(), strut);
}

void StripWindow::paintEvent(QPaintEvent* event)
{
    QPainter(this).fillRect(event->rect(), background_);
}

} // namespace quor::platform
