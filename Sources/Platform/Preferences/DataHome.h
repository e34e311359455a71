// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <optional>

namespace quor::platform {

/// The folder of the user's application data: `$XDG_DATA_HOME` where that is an absolute path,
/// else `~/.local/share`; none for a user without a home. In the file system's encoding, so that a path
/// which is no text is the same for all processes. Read anew at each call. Any thread.
[[nodiscard]] std::optional<QByteArray> dataHome();

} // namespace quor::platform
