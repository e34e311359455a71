// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <optional>

namespace quor::toolkit {

/// The value of `key` in a file of shell assignments, as `os-release` and `machine-info` are: one
/// `KEY=value` a line, where the value may be quoted and a later line overrides an earlier one. Lines
/// that are none of this are skipped. Absent, too, if it is empty. Reads 64 KiB at most.
[[nodiscard]] std::optional<QString> valueInEnvironmentFile(const QString& path, const QString& key);

} // namespace quor::toolkit
