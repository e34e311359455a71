// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace quor::platform {

/// One application of the session.
struct RunningApplication {
    QString bundleIdentifier; ///< Empty if it is not known.
    std::uint64_t window = 0; ///< Native window of it that was in front; 0 if none is known.

    friend bool operator==(const RunningApplication&, const RunningApplication&) = default;
};

/// The applications of the desktop session. Main thread only.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// Those that run now, in no particular order; empty where the session cannot be asked.
    [[nodiscard]] virtual std::vector<RunningApplication> runningApplications() const = 0;

    /// The one that has the keyboard, with the window that has it; none if no window has, or the desktop
    /// does not tell. May be this one.
    [[nodiscard]] virtual std::optional<RunningApplication> frontmostApplication() const = 0;

    /// Gives the keyboard to the application: to its `window`, else to the foremost of its windows.
    /// Nothing happens if it has none any more.
    virtual void activate(const RunningApplication& application) = 0;
};

/// Whether an application with exactly this bundle identifier runs.
[[nodiscard]] bool isApplicationRunning(const Workspace& workspace, const QString& bundleIdentifier);

} // namespace quor::platform
