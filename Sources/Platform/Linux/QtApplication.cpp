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

bool takeKeyboard(QWindow& window)
{
    auto* connection = x11Connection();
    return connection && activateWindow(connection, xcb_window_t(window.winId()));
}

/// Gives a window the keyboard as soon as it is on the screen. Deletes itself then, or when the window is
/// hidden or destroyed before.
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
    // Not quit(), which a window could refuse.
    QMetaObject::invokeMethod(
        QCoreApplication::instance(), [] { QCoreApplication::exit(); }, Qt::QueuedConnection);
}

void QtApplication::activate(QWidget& window)
{
    auto* native = window.isVisible() ? window.window()->windowHandle() : nullptr;
    if (!native || !x11Connection())
        window.activateWindow();
    else if (!takeKeyboard(*native))
        new ActivationWhenExposed(*native);
}

} // namespace quor::platform
