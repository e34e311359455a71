// SPDX-License-Identifier: MIT
#include "Platform/Linux/Monitors/LocalMonitors.h"

#include "Platform/Linux/Keyboard/VirtualKeyCodes.h"

#include <QCoreApplication>
#include <QKeyEvent>
#include <QMouseEvent>

#include <utility>

namespace quor::platform {

namespace {

std::optional<EventType> typeOf(const QMouseEvent& event)
{
    const bool isUp = event.type() == QEvent::MouseButtonRelease;
    switch (event.button()) {
    case Qt::LeftButton:
        return isUp ? EventType::leftMouseUp : EventType::leftMouseDown;
    case Qt::RightButton:
        return isUp ? EventType::rightMouseUp : EventType::rightMouseDown;
    default:
        return std::nullopt;
    }
}

EventType typeOf(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_Super_L:
    case Qt::Key_Super_R:
    case Qt::Key_Hyper_L:
    case Qt::Key_Hyper_R:
    case Qt::Key_Mode_switch:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_ScrollLock:
        return EventType::flagsChanged;
    default:
        return event.type() == QEvent::KeyPress ? EventType::keyDown : EventType::keyUp;
    }
}

QWindow* topLevelOf(QWindow& window)
{
    auto* top = &window;
    while (auto* parent = top->parent(QWindow::ExcludeTransients))
        top = parent;
    return top;
}

} // namespace

void LocalMonitors::add(EventMonitors::Token token, EventMask mask, EventMonitors::LocalHandler handler)
{
    monitors_.add(token, mask, std::move(handler));
    listen();
}

void LocalMonitors::remove(EventMonitors::Token token)
{
    monitors_.remove(token);
    listen();
}

// Also listens without monitors while a release is still to be swallowed.
void LocalMonitors::listen()
{
    const bool listens = !monitors_.isEmpty() || swallowed_;
    auto* application = QCoreApplication::instance();
    if (std::exchange(listens_, listens) == listens || !application)
        return;
    if (listens)
        application->installEventFilter(this);
    else
        application->removeEventFilter(this);
}

bool LocalMonitors::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonRelease:
    case QEvent::MouseButtonDblClick:
        return watched->isWindowType()
            && swallows(static_cast<QWindow&>(*watched), static_cast<const QMouseEvent&>(*event));
    case QEvent::KeyPress:
    case QEvent::KeyRelease:
        return watched->isWindowType()
            && swallows(static_cast<QWindow&>(*watched), static_cast<const QKeyEvent&>(*event));
    default:
        return false;
    }
}

bool LocalMonitors::swallows(QWindow& window, const QKeyEvent& event)
{
    const QPointer target(&window);
    const auto code = event.nativeScanCode();
    const auto keyCode = code < x11KeycodeOffset ? std::nullopt : virtualKeyCode(code - x11KeycodeOffset);
    const bool isSwallowed
        = this->isSwallowed(monitors_, {typeOf(event), {}, event.modifiers(), topLevelOf(window), keyCode});
    return isSwallowed || !target;
}

bool LocalMonitors::swallows(QWindow& window, const QMouseEvent& event)
{
    // Qt sends a double click after a press of its own, which the monitors have seen.
    if (event.type() == QEvent::MouseButtonDblClick)
        return swallowed_.testFlag(event.button());
    const auto type = typeOf(event);
    if (!type)
        return false;
    const auto button = event.button();
    const bool isDown = event.type() == QEvent::MouseButtonPress;
    const bool belongsToSwallowed = !isDown && swallowed_.testFlag(button);

    const QPointer self(this);
    const QPointer target(&window);
    const bool isSwallowed = this->isSwallowed(
        monitors_, {*type, event.globalPosition(), event.modifiers(), topLevelOf(window)});
    if (self) {
        swallowed_.setFlag(button, isDown && isSwallowed);
        listen();
    }
    // If a handler has destroyed the window, Qt must not deliver the event to it.
    return isSwallowed || belongsToSwallowed || !target;
}

bool LocalMonitors::isSwallowed(const MonitorList<EventMonitors::LocalHandler>& monitors, InputEvent event)
{
    bool swallowed = false;
    monitors.visit(event.type, [&](const EventMonitors::LocalHandler& handler) {
        auto next = handler(event);
        swallowed = !next;
        if (next)
            event = *std::move(next);
        return !swallowed;
    });
    return swallowed;
}

} // namespace quor::platform
