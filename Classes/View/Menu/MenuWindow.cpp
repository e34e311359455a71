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
    matchSizeSteps(frame.size());
    setGeometry(frame);
}

// Where scaled, Qt tells the window manager to size windows in steps of several pixels. They are to take
// nothing from this size, so they are counted from a small one that all steps lead to this from.
void MenuWindow::matchSizeSteps(const QSize& size)
{
    constexpr int manySteps = 24; // at any scale in quarters
    const double scale = devicePixelRatioF();
    if (windowHandle() && std::floor(scale) != scale)
        windowHandle()->setBaseSize({size.width() % manySteps, size.height() % manySteps});
}

bool MenuWindow::event(QEvent* event)
{
    const bool done = QWidget::event(event);
    if (event->type() == QEvent::WindowActivate) {
        // A window manager that took the window into its frame meanwhile can leave Qt with a wrong idea of
        // where it is.
        place();
        Q_EMIT didBecomeKey();
    } else if (event->type() == QEvent::WindowDeactivate) {
        Q_EMIT didResignKey();
    }
    return done;
}

void MenuWindow::showEvent(QShowEvent*)
{
    matchSizeSteps(size()); // the window manager has not seen it before
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
