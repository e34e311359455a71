// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QPointer>
#include <QWindow>

#include <cstdint>
#include <functional>
#include <optional>

namespace quor::platform {

/// The value is the number of the type's bit in an `EventMask`.
enum class EventType : unsigned { leftMouseDown = 1, leftMouseUp = 2, rightMouseDown = 3, rightMouseUp = 4 };

/// Types of events; 10 is a press of the left or of the right button.
using EventMask = std::uint64_t;

[[nodiscard]] constexpr EventMask eventMask(EventType type)
{
    return EventMask(1) << unsigned(type);
}

struct InputEvent {
    EventType type = EventType::leftMouseDown;
    QPointF screenLocation; ///< Device-independent pixels, as `QCursor::pos()` tells it.
    Qt::KeyboardModifiers modifiers;
    QPointer<QWindow> window; ///< The top-level window that it is for; null if that is not ours.
};

/// Handlers that are shown the user's input before, or although, it is not meant for them.
///
/// Events come in the order in which they happened, each to all monitors of its type, in the order of
/// their installation. A handler may add and remove monitors, its own too: a removed one is not called
/// again, a new one sees the next event. It may not throw. Main thread only.
class EventMonitors {
public:
    /// Names one monitor. Never reused within a process.
    enum class Token : std::uint64_t {};

    using GlobalHandler = std::function<void(const InputEvent&)>;
    /// Gives the event that the monitors behind it see, none to swallow it. What the window gets, if
    /// nobody swallows it, stays as it is.
    using LocalHandler = std::function<std::optional<InputEvent>(const InputEvent&)>;

    virtual ~EventMonitors() = default;

    /// Shows `handler` the events that go to other applications. None where the desktop does not tell.
    [[nodiscard]] virtual std::optional<Token> addGlobalMonitor(EventMask mask, GlobalHandler handler) = 0;

    /// Shows `handler` the events for the windows of this application, before these get them. With a
    /// swallowed press go the double click and the release of the same button.
    [[nodiscard]] virtual std::optional<Token> addLocalMonitor(EventMask mask, LocalHandler handler) = 0;

    /// A token that is not installed does nothing.
    virtual void removeMonitor(Token token) = 0;
};

} // namespace quor::platform
