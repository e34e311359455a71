// SPDX-License-Identifier: MIT
#pragma once

#include "Peer/Model/Task.h"

#include <QString>

#include <vector>

namespace quor::peer {

/// The tasks that a user may mean by a text: the one of that identifier; else those of exactly that
/// name; else those whose name reads the same but for case and accents. Borrowed from `tasks`.
[[nodiscard]] std::vector<const Task*> tasksMeant(const std::vector<Task>& tasks, const QString& text);

} // namespace quor::peer
