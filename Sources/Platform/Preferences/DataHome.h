// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>

namespace quor::platform {

/// Returns the folder of the user's application data: `$XDG_DATA_HOME` if that is an absolute path, else
/// `~/.local/share`. Returns `nullopt` for a user without a home folder. The path is in the file system's
/// encoding, as not every path is valid text. Reads the environment at each call. Any thread.
[[nodiscard]] std::optional<QByteArray> dataHome();

} // namespace quor::platform
