// SPDX-License-Identifier: MIT
#include "View/MenuWindow.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>

#include <utility>

namespace quor::helper {

MenuWindow::MenuWindow()
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowTitle(QGuiApplication::applicationDisplayName()); // which screen readers say
}

void MenuWindow::setContentView(QWidget* view)
{
    contentView_ = view;
    view->setParent(this);
    view->setGeometry(rect());
    view->show();
}

void MenuWindow::setContentSize(const QSize& size)
{
    contentSize_ = size;
    place();
}

void MenuWindow::place()
{
    const QRect frame(placement ? placement(contentSize_) : pos(), contentSize_);
    if (frame == geometry() || frame.isEmpty())
        return;
    // At a fractional scale Qt tells the window manager to size windows in steps of several pixels.
    // Counted from just this size, no step takes anything from it.
    setBaseSize(frame.size());
    setGeometry(frame);
}

bool MenuWindow::event(QEvent* event)
{
    const bool done = QWidget::event(event);
    if (event->type() == QEvent::WindowActivate)
        Q_EMIT didBecomeKey();
    else if (event->type() == QEvent::WindowDeactivate)
        Q_EMIT didResignKey();
    return done;
}

void MenuWindow::resizeEvent(QResizeEvent* event)
{
    if (contentView_)
        contentView_->resize(event->size());
}

void MenuWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        Q_EMIT cancelled();
    else
        QWidget::keyPressEvent(event);
}

void MenuWindow::closeEvent(QCloseEvent* event)
{
    if (!std::exchange(closed_, true))
        Q_EMIT willClose();
    event->accept();
}

void MenuWindow::hideEvent(QHideEvent* event)
{
    if (!event->spontaneous()) // as where a window manager shows the bare desktop for a while
        Q_EMIT willDisappear();
}

} // namespace quor::helper
