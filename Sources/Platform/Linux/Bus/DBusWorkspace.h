// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Workspace.h"

#include <cstdint>

namespace quor::platform {

class SessionBus;

/// The applications of the session, by the names they own on its bus: an application's bundle
/// identifier is its well-known name. Which of them is in front, the X server or its window manager tells;
/// without X none is. Borrows the bus. Main thread only.
class DBusWorkspace final : public Workspace {
public:
    explicit DBusWorkspace(SessionBus& bus);

    /// Asks the bus each time, for a second at most.
    [[nodiscard]] std::vector<RunningApplication> runningApplications() const override;

    /// Asks the bus for the bundle identifier, for 0.2 seconds at most. Of several names that the
    /// application owns it is the first by the alphabet.
    [[nodiscard]] std::optional<RunningApplication> frontmostApplication() const override;

    void activate(const RunningApplication& application) override;

private:
    [[nodiscard]] QString nameOwnedBy(std::uint32_t process) const;

    SessionBus& bus_;
};

} // namespace quor::platform
