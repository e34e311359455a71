// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace quor::platform {

/// The folder of the user's application data: `$XDG_DATA_HOME` where that is an absolute path,
/// else `~/.local/share`; none for a user without a home. Read anew at each call. Any thread.
[[nodiscard]] std::optional<QString> dataHome();

} // namespace quor::platform
