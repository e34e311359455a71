// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <vector>

namespace quor::platform {

/// One application of the session.
struct RunningApplication {
    QString bundleIdentifier;

    friend bool operator==(const RunningApplication&, const RunningApplication&) = default;
};

/// The applications of the desktop session. Main thread only.
class Workspace {
public:
    virtual ~Workspace() = default;

    /// Those that run now, in no particular order; empty where the session cannot be asked.
    [[nodiscard]] virtual std::vector<RunningApplication> runningApplications() const = 0;
};

/// Whether an application with exactly this bundle identifier runs.
[[nodiscard]] bool isApplicationRunning(const Workspace& workspace, const QString& bundleIdentifier);

} // namespace quor::platform
