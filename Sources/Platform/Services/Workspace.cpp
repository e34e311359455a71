// SPDX-License-Identifier: MIT
#include "Platform/Services/Workspace.h"

#include <algorithm>

namespace quor::platform {

std::optional<bool> isApplicationRunning(const Workspace& workspace, const QString& bundleIdentifier)
{
    const auto applications = workspace.runningApplications();
    if (!applications)
        return std::nullopt;
    return std::ranges::find(*applications, bundleIdentifier, &RunningApplication::bundleIdentifier)
        != applications->end();
}

} // namespace quor::platform
