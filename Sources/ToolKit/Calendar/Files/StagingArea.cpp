// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Files/StagingArea.h"

#include "ToolKit/Calendar/Items/ItemErrors.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace quor::toolkit {

const StagedFile* StagingArea::find(const QByteArray& name) const
{
    const auto found = files_.find(name);
    return found == files_.end() ? nullptr : &found->second;
}

EventStoreResult StagingArea::stage(const CalendarDirectory& directory, const QByteArray& name, ItemEdit edit,
    std::shared_ptr<const WriteStatus> condition)
{
    if (auto obstacle = directory.writeObstacle(name))
        return obstacle;
    auto file = files_.find(name);
    if (file == files_.end()) {
        auto content = directory.read(name);
        if (content && !content->bytes)
            return content->failure(name);
        file = files_.try_emplace(name, name, std::move(content)).first;
    }
    auto failure = file->second.add(std::move(edit), std::move(condition));
    if (!file->second.hasEdits())
        files_.erase(file);
    return failure;
}

bool StagingArea::hasUnfinishedMoves() const
{
    return std::ranges::any_of(files_, [](const auto& each) {
        return each.second.depends(WriteStatus::pending) || each.second.depends(WriteStatus::abandoned);
    });
}

bool StagingArea::isAnyReady(CommitWave wave) const
{
    return std::ranges::any_of(files_, [&](const auto& each) {
        return each.second.wave() == wave && !each.second.depends(WriteStatus::pending);
    });
}

bool StagingArea::commit(CommitWave wave, const CalendarDirectory& directory, ParsedFiles& files,
    std::vector<EventStoreError>& failures)
{
    const std::size_t before = files_.size();
    for (auto each = files_.begin(); each != files_.end();) {
        StagedFile& file = each->second;
        if (file.wave() != wave || file.depends(WriteStatus::pending)) {
            ++each;
            continue;
        }
        const auto failure = file.write(directory, files);
        if (failure)
            failures.push_back(*failure);
        each = failure && !isFinal(*failure) ? std::next(each) : files_.erase(each);
    }
    return files_.size() < before;
}

} // namespace quor::toolkit
