// SPDX-License-Identifier: MIT
#include "Peer/Model/TaskLookup.h"

#include "Peer/Model/TextSearch.h"

namespace quor::peer {

namespace {

template <typename Condition>
std::vector<const Task*> filtered(const std::vector<Task>& tasks, Condition condition)
{
    std::vector<const Task*> result;
    for (const Task& task : tasks) {
        if (condition(task))
            result.push_back(&task);
    }
    return result;
}

} // namespace

std::vector<const Task*> tasksMeant(const std::vector<Task>& tasks, const QString& text)
{
    auto meant = filtered(tasks, [&](const Task& task) { return task.id == text; });
    if (meant.empty())
        meant = filtered(tasks, [&](const Task& task) { return task.name == text; });
    if (meant.empty()) {
        const TextSearch search(text);
        meant = filtered(tasks, [&](const Task& task) { return search.isSameAs(task.name); });
    }
    return meant;
}

} // namespace quor::peer
