// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstddef>

namespace quor::helper {

/// Returns a task's name as the status item shows it: without emoji (which include "#" and "*", but not
/// plain digits) and without blanks at its ends, followed by "+1" if two timers run, "+2" if three run,
/// and so on. Takes time linear in the length of the name.
[[nodiscard]] QString taskText(const QString& name, std::size_t runningTimers);

} // namespace quor::helper
