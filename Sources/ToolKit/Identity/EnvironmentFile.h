// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace quor::toolkit {

/// Returns the value of `key` in a file of shell assignments, such as `os-release` and `machine-info`: one
/// `KEY=value` on each line, where the value may be quoted. A later line overrides an earlier one; all other
/// lines are ignored. Returns `nullopt` if there is no value, if it is empty, or if the file cannot be read
/// or has more than 64 KiB.
[[nodiscard]] std::optional<QString> valueInEnvironmentFile(const QString& path, const QString& key);

} // namespace quor::toolkit
