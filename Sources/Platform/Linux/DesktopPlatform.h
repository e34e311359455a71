// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace quor::platform {

/// Chooses the Qt platform of this process. Call it before creating the QApplication, with the arguments of
/// `main`. Returns `nullopt` on success. If there is no display that Qt could open, returns the reason as a
/// text for the user; creating the QApplication would then abort the process.
///
/// A choice of the user (`QT_QPA_PLATFORM`, `-platform`) is kept and not checked. Otherwise the platform is
/// X if the X server in `DISPLAY` can be reached, even in a Wayland session, since windows cannot choose
/// their position under Wayland. If this function chooses X it sets `QT_QPA_PLATFORM`, which child processes
/// inherit.
[[nodiscard]] std::optional<QString> chooseDesktopPlatform(int argc, const char* const* argv);

} // namespace quor::platform
