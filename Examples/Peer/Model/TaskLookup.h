// SPDX-License-Identifier: MIT
#pragma once

#include "Peer/Model/Task.h"

#include <QString>

#include <vector>

namespace quor::peer {

/// The tasks that a user can mean by a text: the task with that identifier, else the tasks with exactly that
/// name, else the tasks whose names differ from it only in case and accents. The pointers are into `tasks`.
[[nodiscard]] std::vector<const Task*> tasksMeant(const std::vector<Task>& tasks, const QString& text);

} // namespace quor::peer
