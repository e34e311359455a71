// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/ApplicationInstaller.h"

#include <optional>

namespace quor::platform {
class Application;
}

namespace quor::toolkit {

/// Moves the running application into the folder for applications, and starts it again there. Main thread
/// only.
class AppMover final {
public:
    AppMover() = delete;

    /// Whether the user has agreed to the move of this process.
    static inline bool moveInProgress = false;

    /// A move that can be made.
    struct Plan {
        platform::ApplicationBundle bundle; ///< the running one
        platform::ApplicationBundle target;
        bool replaces = false; ///< something has the name of the target
        bool needsAuthorization = false; ///< the user may not write there
    };

    /// Returns what `moveIfNeeded` would do. Returns `nullopt` if the application is in its place, or is
    /// neither a folder `Name.app` nor a file `Name.AppImage`.
    [[nodiscard]] static std::optional<Plan> plan(const platform::ApplicationInstaller& installer);

    /// To be called once, at the start of an application. Has no effect if there is no plan. Otherwise asks
    /// the user and, after a yes, moves the bundle. Returns after the question or the move has ended.
    ///
    /// After a move the process ends as soon as the event loop runs, without asking anybody, and the moved
    /// application starts. A copy at the target that is running is ended and goes into the trash; if it
    /// cannot be ended, it comes to the front instead, and this process goes on. A failed move tells the user
    /// why and changes nothing, and the process goes on; if it needed an administrator, the process is asked
    /// to terminate. A user who closes the question for the password is asked again.
    static void moveIfNeeded(platform::ApplicationInstaller& installer, platform::Application& application);
};

} // namespace quor::toolkit
