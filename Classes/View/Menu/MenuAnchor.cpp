// SPDX-License-Identifier: MIT
#include "View/Menu/MenuAnchor.h"

#include <QEvent>
#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <utility>

namespace quor::helper {

MenuAnchor::MenuAnchor(QWidget& button)
    : button_(&button)
{
    button.installEventFilter(this);
    button.window()->installEventFilter(this);
    for (auto change : {&QGuiApplication::screenAdded, &QGuiApplication::screenRemoved,
             &QGuiApplication::primaryScreenChanged})
        connect(qGuiApp, change, this, &MenuAnchor::screensWillNotify);
    observe(screenOf(button));
}

QRectF MenuAnchor::frameOf(const QWidget& button)
{
    const auto* bar = button.parentWidget();
    const QWidget& view = bar && bar->parentWidget() ? *bar->parentWidget() : button;
    return {view.mapToGlobal(QPointF()), view.size()};
}

QScreen* MenuAnchor::screenOf(const QWidget& button)
{
    return button.isVisible() ? button.screen() : nullptr;
}

bool MenuAnchor::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::Move:
    case QEvent::Resize:
    case QEvent::Show:
    case QEvent::Hide:
        willNotify();
        break;
    case QEvent::ScreenChangeInternal:
        screensWillNotify();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void MenuAnchor::observe(QScreen* screen)
{
    for (const auto& change : std::exchange(screenChanges_, {}))
        disconnect(change);
    if (screen)
        screenChanges_ = {connect(screen, &QScreen::geometryChanged, this, &MenuAnchor::screensWillNotify),
            connect(screen, &QScreen::availableGeometryChanged, this, &MenuAnchor::screensWillNotify),
            connect(screen, &QScreen::logicalDotsPerInchChanged, this, &MenuAnchor::screensWillNotify)};
}

void MenuAnchor::screensWillNotify()
{
    haveScreensChanged_ = true;
    willNotify();
}

// Deferred, until the status bar has adapted itself to the screen.
void MenuAnchor::willNotify()
{
    if (!std::exchange(isNotifyPending_, true))
        QMetaObject::invokeMethod(this, &MenuAnchor::notify, Qt::QueuedConnection);
}

void MenuAnchor::notify()
{
    isNotifyPending_ = false;
    const QPointer self(this);
    if (std::exchange(haveScreensChanged_, false)) {
        observe(button_ ? screenOf(*button_) : nullptr);
        Q_EMIT screensChanged();
    }
    if (self)
        Q_EMIT moved();
}

} // namespace quor::helper
