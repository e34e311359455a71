// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstddef>

namespace quor::helper {

/// A task's name as the status item shows it: without emoji (and so without "#" and "*", but with
/// plain digits), without blanks at its ends, and with "+1" or more behind it where other timers
/// run beside the first. Linear in the name's length.
[[nodiscard]] QString taskText(const QString& name, std::size_t runningTimers);

} // namespace quor::helper
