// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Workspace.h"

#include <cstdint>

namespace quor::platform {

class SessionBus;

/// The applications of the desktop session. An application runs while its bundle identifier is owned as a
/// well-known name on the session bus. The window manager reports the active window; without a window
/// manager that does so, the X server reports the window with the input focus. Without X,
/// `frontmostApplication` returns `nullopt` and `activate` has no effect.
///
/// Borrows the bus, which must outlive this object. Main thread only.
class DBusWorkspace final : public Workspace {
public:
    explicit DBusWorkspace(SessionBus& bus);

    /// Waits for the bus, for one second at most.
    [[nodiscard]] std::optional<std::vector<RunningApplication>> runningApplications() const override;

    /// Waits for the bus, for 0.2 seconds at most; after that the bundle identifier stays empty. If the
    /// application owns several names, returns the alphabetically first one.
    [[nodiscard]] std::optional<RunningApplication> frontmostApplication() const override;

    /// Waits for the bus only if `application.window` is gone or not given, for 0.1 seconds at most.
    void activate(const RunningApplication& application) override;

private:
    [[nodiscard]] QString nameOwnedBy(std::uint32_t process) const;

    SessionBus& bus_;
};

} // namespace quor::platform
