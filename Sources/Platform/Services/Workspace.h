// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace quor::platform {

/// Identifies an application of the session, which may have ended.
struct RunningApplication {
    QString bundleIdentifier; ///< Empty if not known.
    std::uint64_t window = 0; ///< The native window that had the keyboard; 0 if not known.

    friend bool operator==(const RunningApplication&, const RunningApplication&) = default;
};

/// The applications of the desktop session. Main thread only.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// Returns the applications that run now, in no particular order and without their windows. Returns
    /// `nullopt` if the session does not answer in time.
    [[nodiscard]] virtual std::optional<std::vector<RunningApplication>> runningApplications() const = 0;

    /// Returns the application that has the keyboard, with the window that has it. This can be the
    /// calling application. Returns `nullopt` if no window has the keyboard, or if the desktop does not
    /// report which one does.
    [[nodiscard]] virtual std::optional<RunningApplication> frontmostApplication() const = 0;

    /// Gives the keyboard to `application.window`; if that window is gone or not given, to the foremost
    /// window of the application with this bundle identifier. Has no effect if there is no such window.
    virtual void activate(const RunningApplication& application) = 0;
};

/// Whether an application with exactly this bundle identifier runs. Returns `nullopt` if the session does not
/// answer in time: the application may run all the same.
[[nodiscard]] std::optional<bool> isApplicationRunning(
    const Workspace& workspace, const QString& bundleIdentifier);

} // namespace quor::platform
