// SPDX-License-Identifier: MIT
#pragma once

#include <QPointF>
#include <QPointer>
#include <QWindow>

#include <cstdint>
#include <functional>
#include <optional>

namespace quor::platform {

/// A kind of input event. The value is the number of the type's bit in an `EventMask`.
enum class EventType : unsigned {
    leftMouseDown = 1,
    leftMouseUp = 2,
    rightMouseDown = 3,
    rightMouseUp = 4,
    keyDown = 10, ///< Also each time that a held key repeats.
    keyUp = 11,
    flagsChanged = 12, ///< A key that is a modifier, like Shift or Caps Lock, went down or up.
};

/// A set of event types: the sum of their `eventMask`.
using EventMask = std::uint64_t;

[[nodiscard]] constexpr EventMask eventMask(EventType type)
{
    return EventMask(1) << unsigned(type);
}

/// Presses of the left and of the right button.
inline constexpr EventMask mouseDownMask
    = eventMask(EventType::leftMouseDown) | eventMask(EventType::rightMouseDown);

/// All types of events of the keyboard.
inline constexpr EventMask keyMask
    = eventMask(EventType::keyDown) | eventMask(EventType::keyUp) | eventMask(EventType::flagsChanged);

struct InputEvent {
    EventType type = EventType::leftMouseDown;
    QPointF screenLocation; ///< In the coordinates of `QCursor::pos()`. (0, 0) for the keyboard.
    Qt::KeyboardModifiers modifiers; ///< After the event.
    QPointer<QWindow> window; ///< The top-level window that gets the event; null if another process owns it.
    /// The virtual key code of the key: its position, whatever the layout puts there. Empty for the mouse,
    /// and for a key that has no code.
    std::optional<std::uint32_t> keyCode = std::nullopt;
};

/// Lets an application watch the user's mouse buttons and keyboard: global monitors see what other
/// applications get, local monitors see, and may swallow, what this application gets. No monitor sees the
/// keys that other applications get.
///
/// Each event is passed to all monitors of its type, in the order in which they were added. A handler
/// may add and remove monitors, including its own: a removed monitor is not called again, a new one
/// gets the next event. A handler must not throw. Main thread only.
class EventMonitors {
public:
    /// Identifies one monitor of this object, which never uses a token twice.
    enum class Token : std::uint64_t {};

    using GlobalHandler = std::function<void(const InputEvent&)>;
    /// Returns the event for the monitors that were added later, or `nullopt` to swallow it: then neither
    /// they nor the window get it. A changed event is not passed to the window, which gets the original.
    using LocalHandler = std::function<std::optional<InputEvent>(const InputEvent&)>;

    virtual ~EventMonitors() = default;

    /// Calls `handler` for each event of the mouse, of the types in `mask`, that goes to another application.
    /// Returns `nullopt` if the desktop does not report such events; `handler` is then never called.
    [[nodiscard]] virtual std::optional<Token> addGlobalMonitor(EventMask mask, GlobalHandler handler) = 0;

    /// Calls `handler` for each event of the types in `mask` that goes to a window of this application,
    /// before the window gets it. If a press is swallowed, the double click and the release that follow
    /// it are kept from the window too. A key that triggers a shortcut of the application is not reported,
    /// unless the widget with the focus accepts its `QEvent::ShortcutOverride`. Always returns a token.
    [[nodiscard]] virtual std::optional<Token> addLocalMonitor(EventMask mask, LocalHandler handler) = 0;

    /// Removes a monitor of either kind. A token that was removed before is ignored.
    virtual void removeMonitor(Token token) = 0;
};

} // namespace quor::platform
