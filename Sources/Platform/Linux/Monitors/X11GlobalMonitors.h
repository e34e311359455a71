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

/// The monitors of what goes to other applications, by the raw button events of the X server.
///
/// The server tells a raw event to whoever asks, without place and whoever gets the button event that it
/// becomes, and tells it first. So it waits here until a message that this object then sends to
/// itself has come back through the server: by then the button event has come as well, if it was for us.
class X11GlobalMonitors final : public QObject, private QAbstractNativeEventFilter {
    Q_OBJECT

public:
    X11GlobalMonitors() = default;
    ~X11GlobalMonitors() override;

    /// False where there are no raw events to be had.
    [[nodiscard]] bool add(EventMonitors::Token token, EventMask mask, EventMonitors::GlobalHandler handler);
    void remove(EventMonitors::Token token);

private:
    enum class Receiver { unknown, us, others };
    struct RawEvent {
        InputEvent event;
        std::uint32_t time; ///< The server's, in milliseconds.
        bool isOurs; ///< It happened over a window of ours, or the button event has come.
    };

    [[nodiscard]] bool open();
    void close();
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;
    void inputEventCame(const void* message);
    void rawEventCame(bool isDown, std::uint32_t button, std::uint32_t time);
    void ownEventCame(bool isDown, std::uint32_t time);
    void messageCame();
    void tell(const InputEvent& event);

    xcb_connection_t* connection_ = nullptr; ///< Qt's; null while closed.
    std::uint32_t mailbox_ = 0; ///< A window of ours that the messages go to.
    std::uint8_t inputOpcode_ = 0;
    std::deque<RawEvent> undecided_;
    std::array<Receiver, 2> pressReceivers_{}; ///< Of the last press of the left and the right button.
    MonitorList<EventMonitors::GlobalHandler> monitors_;
};

} // namespace quor::platform
