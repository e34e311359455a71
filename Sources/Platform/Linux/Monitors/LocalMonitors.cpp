// SPDX-License-Identifier: MIT
#include "Platform/Linux/Monitors/LocalMonitors.h"

#include <QCoreApplication>
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
    default:
        return false;
    }
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
