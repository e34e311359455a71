// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace quor::platform {

/// Settles which of Qt's platforms is used; call it before making the QApplication, with the
/// arguments of `main`. The result says why there can be none, for the user to read; Qt itself would
/// abort.
///
/// The user's own choice (`QT_QPA_PLATFORM`, `-platform`) stands. Otherwise it is X wherever there is
/// an X server that can be reached, in a Wayland session too, since windows cannot place themselves under
/// Wayland. Where it chooses, it sets `QT_QPA_PLATFORM`, which child processes inherit.
[[nodiscard]] std::optional<QString> chooseDesktopPlatform(int argc, const char* const* argv);

} // namespace quor::platform
