// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Linux/Monitors/MonitorList.h"

#include <QAbstractNativeEventFilter>
#include <QObject>

#include <array>
#include <cstdint>
#include <deque>
#include <optional>

struct xcb_connection_t;

namespace quor::platform {

/// The global monitors, fed by raw button events of the X server.
///
/// The server reports a raw event to every client that selects them, before it sends the ordinary button
/// event to the client that gets it. A raw event has no position and does not say who gets the button event.
/// So this object keeps a raw event back, sends a message to its own window through the server, and decides
/// when that message arrives: if the button event goes to this application, it has arrived by then.
class X11GlobalMonitors final : public QObject, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    X11GlobalMonitors() = default;
    ~X11GlobalMonitors() override;

    /// Adds a monitor. Returns false without X, or if the X server does not offer raw events.
    [[nodiscard]] bool add(EventMonitors::Token token, EventMask mask, EventMonitors::GlobalHandler handler);
    void remove(EventMonitors::Token token); ///< Ignores a token that is not in use.

private:
    enum class Receiver { unknown, us, others };
    struct RawEvent {
        InputEvent event;
        std::uint32_t time; ///< The server's time, in milliseconds.
        bool isOurs; ///< The pointer is over a window of this application, or the button event has arrived.
    };

    [[nodiscard]] bool open();
    void close();
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    void handleInputEvent(const void* message);
    void handleRawEvent(bool isDown, std::uint32_t button, std::uint32_t time);
    void handleOwnEvent(bool isDown, std::uint32_t time);
    void handleMessage();
    void notify(const InputEvent& event);

    xcb_connection_t* connection_ = nullptr; ///< Qt's connection; null while there are no monitors.
    std::uint32_t mailbox_ = 0; ///< The window to which the messages are sent.
    std::uint8_t inputOpcode_ = 0;
    std::deque<RawEvent> undecided_; ///< One for each message that is under way.
    /// Who got the last press of the left and of the right button.
    std::array<Receiver, 2> pressReceivers_{};
    MonitorList<EventMonitors::GlobalHandler> monitors_;
};

} // namespace quor::platform
