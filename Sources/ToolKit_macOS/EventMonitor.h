// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/EventMonitors.h"

#include <optional>

namespace quor::toolkit {

/// A monitor of the user's input, for the types of events in its mask. Removed when this object ends.
///
/// Call `stop` before starting it again: otherwise the monitor that was started first stays installed for
/// good. If the desktop does not allow a monitor, the handler is never called. Borrows the monitors, which
/// must outlive it. Main thread only.
class EventMonitor final {
public:
    /// Does not install a monitor yet.
    EventMonitor(platform::EventMonitors& monitors, platform::EventMask mask);
    ~EventMonitor();
    EventMonitor(const EventMonitor&) = delete;
    EventMonitor& operator=(const EventMonitor&) = delete;

    /// Calls `handler` with the events that go to other applications.
    void startGlobal(platform::EventMonitors::GlobalHandler handler);

    /// Calls `handler` with the events that go to this application, before its windows get them. The event
    /// that the handler returns is passed on; `nullopt` swallows the event.
    void startLocal(platform::EventMonitors::LocalHandler handler);

    /// Removes the monitor. Has no effect if no monitor is started. After that the handler is not called. The
    /// handler may call this, and may delete this object.
    void stop();

private:
    platform::EventMonitors& monitors_;
    platform::EventMask mask_;
    std::optional<platform::EventMonitors::Token> monitor_;
};

} // namespace quor::toolkit
