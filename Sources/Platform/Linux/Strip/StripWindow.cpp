// SPDX-License-Identifier: MIT
#include "Platform/Linux/Strip/StripWindow.h"

#include "Platform/Linux/X11/X11Window.h"

#include <QMouseEvent>
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
    // At a fractional scale Qt tells the window manager to size windows in steps of several pixels.
    // Counted from just this size, no step takes anything from it.
    setBaseSize(frame.size());
    setGeometry(frame);
}

// In its place from the first, as a window manager could still see it elsewhere.
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

bool StripWindow::event(QEvent* event)
{
    if (event->type() == QEvent::LayoutRequest)
        Q_EMIT layoutRequested();
    return QWidget::event(event);
}

void StripWindow::paintEvent(QPaintEvent* event)
{
    QPainter(this).fillRect(event->rect(), background_);
}

void StripWindow::mousePressEvent(QMouseEvent* event)
{
    if (event->button() == Qt::LeftButton || event->button() == Qt::RightButton)
        Q_EMIT pressedBesideWidgets();
}

} // namespace quor::platform
