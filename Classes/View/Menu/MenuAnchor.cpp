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
        connect(qGuiApp, change, this, &MenuAnchor::noticeScreens);
    follow(screenOf(button));
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
        notice();
        break;
    case QEvent::ScreenChangeInternal:
        noticeScreens();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void MenuAnchor::follow(QScreen* screen)
{
    for (const auto& change : std::exchange(screenChanges_, {}))
        disconnect(change);
    if (screen)
        screenChanges_ = {connect(screen, &QScreen::geometryChanged, this, &MenuAnchor::noticeScreens),
            connect(screen, &QScreen::availableGeometryChanged, this, &MenuAnchor::noticeScreens),
            connect(screen, &QScreen::logicalDotsPerInchChanged, this, &MenuAnchor::noticeScreens)};
}

void MenuAnchor::noticeScreens()
{
    screensNoticed_ = true;
    notice();
}

// Later, when the bar has followed the screen too.
void MenuAnchor::notice()
{
    if (!std::exchange(noticed_, true))
        QMetaObject::invokeMethod(this, &MenuAnchor::tell, Qt::QueuedConnection);
}

void MenuAnchor::tell()
{
    noticed_ = false;
    const QPointer self(this);
    if (std::exchange(screensNoticed_, false)) {
        follow(button_ ? screenOf(*button_) : nullptr);
        Q_EMIT screensChanged();
    }
    if (self)
        Q_EMIT moved();
}

} // namespace quor::helper
