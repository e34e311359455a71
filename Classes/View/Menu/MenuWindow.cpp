// SPDX-License-Identifier: MIT
#include "View/Menu/MenuWindow.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QWindow>

#include <cmath>
#include <utility>

namespace quor::helper {

MenuWindow::MenuWindow()
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint)
{
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowTitle(QGuiApplication::applicationDisplayName()); // for screen readers
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
    adjustBaseSize(frame.size());
    setGeometry(frame);
}

// At a fractional scale, Qt makes the window manager restrict the sizes of a window to its base size plus a
// number of steps, which are some pixels large. This base size differs from `size` by a whole number of
// steps.
void MenuWindow::adjustBaseSize(const QSize& size)
{
    constexpr int multipleOfSteps = 24; // for all scales that are multiples of a quarter
    const double scale = devicePixelRatioF();
    if (windowHandle() && std::floor(scale) != scale)
        windowHandle()->setBaseSize({size.width() % multipleOfSteps, size.height() % multipleOfSteps});
}

bool MenuWindow::event(QEvent* event)
{
    const bool done = QWidget::event(event);
    if (event->type() == QEvent::WindowActivate) {
        // Qt's idea of the window's position can be wrong after the window manager has put it into a frame.
        place();
        Q_EMIT didBecomeKey();
    } else if (event->type() == QEvent::WindowDeactivate) {
        Q_EMIT didResignKey();
    }
    return done;
}

void MenuWindow::showEvent(QShowEvent*)
{
    adjustBaseSize(size());
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
    if (!event->spontaneous()) // spontaneous: the window manager hides it for a while
        Q_EMIT willDisappear();
}

} // namespace quor::helper
