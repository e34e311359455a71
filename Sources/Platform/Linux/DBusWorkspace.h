// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Workspace.h"

namespace quor::platform {

class SessionBus;

/// The applications of the session, by the names they own on its bus: an application's bundle
/// identifier is its well-known name. Borrows the bus. Main thread only.
class DBusWorkspace final : public Workspace {
public:
    explicit DBusWorkspace(SessionBus& bus);

    /// Asks the bus each time, for a second at most.
    [[nodiscard]] std::vector<RunningApplication> runningApplications() const override;
    [[nodiscard]] std::optional<RunningApplication> frontmostApplication() const override;
    void activate(const RunningApplication& application) override;

private:
    SessionBus& bus_;
};

} // namespace quor::platform
