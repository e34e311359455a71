// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/EventMonitors.h"

#include <optional>

namespace quor::toolkit {

/// One monitor of the user's input, for the types of events in its mask, which is removed at the latest
/// as this object ends.
///
/// Stop it before starting it again: a monitor that was started before stays installed otherwise, and
/// nothing of this object removes it. Where none can be installed, its handler is just never called.
/// Borrows the monitors, which must outlive it. Main thread only.
class EventMonitor final {
public:
    EventMonitor(platform::EventMonitors& monitors, platform::EventMask mask); ///< Installs nothing yet.
    ~EventMonitor();
    EventMonitor(const EventMonitor&) = delete;
    EventMonitor& operator=(const EventMonitor&) = delete;

    /// Monitors what goes to other applications.
    void startGlobal(platform::EventMonitors::GlobalHandler handler);

    /// Monitors what goes to this application, before it gets there. What the handler gives is passed
    /// on, nothing swallows the event.
    void startLocal(platform::EventMonitors::LocalHandler handler);

    /// Harmless if none is started, and from within the handler, which may end this object as well.
    void stop();

private:
    platform::EventMonitors& monitors_;
    platform::EventMask mask_;
    std::optional<platform::EventMonitors::Token> monitor_;
};

} // namespace quor::toolkit
