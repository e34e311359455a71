// SPDX-License-Identifier: MIT
#include "Platform/Linux/QtApplication.h"

#include "Platform/Linux/X11/X11Connection.h"
#include "Platform/Linux/X11/X11Focus.h"

#include <QCoreApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>

namespace quor::platform {

namespace {

void takeKeyboard(QWindow& window)
{
    if (auto* connection = x11Connection())
        activateWindow(connection, xcb_window_t(window.winId()));
}

/// Waits for a window that is shown to be seen, and gives it the keyboard then, unless it is hidden before.
class ActivationWhenExposed final : public QObject {
public:
    explicit ActivationWhenExposed(QWindow& window)
        : QObject(&window)
        , window_(window)
    {
        window.installEventFilter(this);
    }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        const bool isExposed = event->type() == QEvent::Expose && window_.isExposed();
        if (isExposed || event->type() == QEvent::Hide) {
            window_.removeEventFilter(this);
            deleteLater();
        }
        if (isExposed)
            takeKeyboard(window_);
        return QObject::eventFilter(watched, event);
    }

private:
    QWindow& window_;
};

} // namespace

void QtApplication::terminate()
{
    // Not quit(), which asks each window and so could be refused.
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [] { QCoreApplication::exit(); }, Qt::QueuedConnection);
}

void QtApplication::activate(QWidget& window)
{
    auto* native = window.isVisible() ? window.window()->windowHandle() : nullptr;
    auto* connection = x11Connection();
    if (!native || !connection)
        window.activateWindow();
    else if (!activateWindow(connection, xcb_window_t(native->winId())))
        new ActivationWhenExposed(*native);
}

} // namespace quor::platform
