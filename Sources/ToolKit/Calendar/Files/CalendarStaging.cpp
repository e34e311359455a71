// SPDX-License-Identifier: MIT
// What a calendar's files shall be, and how it comes to the disk.
#include "ToolKit/Calendar/Files/CalendarFolder.h"

#include <algorithm>

namespace quor::toolkit {

namespace {

using Kind = EventStoreError::Kind;

EventStoreError unreadable(const QByteArray& name)
{
    return {Kind::unreadable,
        QString::fromUtf8(name) + QStringLiteral(": cannot be read and written as a calendar")};
}

// A file that changes under each of so many tries is somebody else's for now.
constexpr int mostTries = 5;

} // namespace

std::optional<ItemFile> CalendarFolder::content(const QByteArray& file)
{
    if (const auto staged = staged_.find(file); staged != staged_.end())
        return staged->second.bytes ? ItemFile::parse(*staged->second.bytes) : std::nullopt;
    const auto content = CalendarDirectory(root_, path_).read(file);
    return content && content->bytes ? ItemFile::parse(*content->bytes) : std::nullopt;
}

std::optional<EventStoreError> CalendarFolder::stage(
    const QByteArray& file, ItemEdit edit, std::shared_ptr<const Arrival> after)
{
    const CalendarDirectory directory(root_, path_);
    if (!directory.isOpen())
        return systemError(ENOENT, path_.identifier());
    const auto known = staged_.find(file);
    Staged staged = known == staged_.end() ? Staged() : known->second;
    if (known == staged_.end()) {
        if (const auto content = directory.read(file)) {
            staged.base = content->identity;
            staged.bytes = content->bytes;
            if (!content->bytes)
                return unreadable(file);
        }
    }
    std::optional<ItemFile> parsed = staged.bytes ? ItemFile::parse(*staged.bytes) : ItemFile();
    if (!parsed)
        return unreadable(file);
    if (auto failure = edit(*parsed))
        return failure;
    staged.steps.push_back({std::move(edit), std::move(after)});
    staged.bytes.reset();
    staged.records = std::make_shared<FileRecords>();
    if (!parsed->isEmpty()) {
        staged.bytes = parsed->bytes();
        // What could not be read again must not be written.
        const auto again = ItemFile::parse(*staged.bytes);
        if (!again || staged.bytes->size() > largestItemFile)
            return EventStoreError(
                Kind::invalid, QString::fromUtf8(file) + QStringLiteral(": does not fit in a file"));
        staged.records = std::make_shared<FileRecords>(again->records());
    }
    staged_.insert_or_assign(file, std::move(staged));
    isIndexed_ = false;
    return std::nullopt;
}

std::optional<EventStoreError> CalendarFolder::write(
    const CalendarDirectory& directory, const QByteArray& name, Staged& staged)
{
    if (staged.isOutdated || directory.identity(name) != staged.base) {
        // Another program was here: the edits are made again, on what it wrote.
        const auto content = directory.read(name);
        std::optional<ItemFile> file = !content ? ItemFile()
            : content->bytes                    ? ItemFile::parse(*content->bytes)
                                                : std::nullopt;
        if (!file)
            return unreadable(name);
        for (const Step& step : staged.steps) {
            if (auto failure = step.edit(*file))
                return failure;
        }
        staged.isOutdated = false;
        staged.base = content ? std::optional(content->identity) : std::nullopt;
        staged.bytes = file->isEmpty() ? std::nullopt : std::optional(file->bytes());
        staged.records = std::make_shared<FileRecords>(file->records());
    }
    if (!staged.bytes) {
        if (auto failure = staged.base ? directory.remove(name, *staged.base) : std::nullopt)
            return failure;
        files_.erase(name);
        return std::nullopt;
    }
    FileIdentity written;
    if (auto failure = directory.write(name, *staged.bytes, staged.base, &written))
        return failure;
    files_.insert_or_assign(name, Entry{written, staged.records});
    return std::nullopt;
}

std::optional<EventStoreError> CalendarFolder::writeRepeatedly(
    const CalendarDirectory& directory, const QByteArray& name, Staged& staged)
{
    if (!directory.isOpen())
        return systemError(ENOENT, path_.identifier());
    std::optional<EventStoreError> failure;
    for (int tries = 0; tries < mostTries; ++tries) {
        failure = write(directory, name, staged);
        // A conflict between the edits themselves stays one.
        if (!failure || failure->kind() != Kind::conflict || directory.identity(name) == staged.base)
            break;
    }
    return failure;
}

void CalendarFolder::dropLostSteps(Staged& staged)
{
    const auto dropped = std::erase_if(
        staged.steps, [](const Step& step) { return step.after && *step.after == Arrival::lost; });
    staged.isOutdated = staged.isOutdated || dropped > 0;
}

bool CalendarFolder::commit(Writes writes, std::vector<EventStoreError>& failures)
{
    if (staged_.empty())
        return false;
    const CalendarDirectory directory(root_, path_);
    directory.lock();
    isIndexed_ = false;
    const std::size_t before = staged_.size();
    for (auto each = staged_.begin(); each != staged_.end();) {
        Staged& staged = each->second;
        dropLostSteps(staged);
        const bool takes = !staged.bytes
            || std::ranges::any_of(staged.steps, [](const Step& step) { return step.after != nullptr; });
        const bool waits = std::ranges::any_of(
            staged.steps, [](const Step& step) { return step.after && *step.after == Arrival::pending; });
        if (waits || takes != (writes == Writes::removals)) {
            ++each;
            continue;
        }
        const auto failure
            = staged.steps.empty() ? std::nullopt : writeRepeatedly(directory, each->first, staged);
        if (failure)
            failures.push_back(*failure);
        const bool isHopeless = failure
            && (failure->kind() == Kind::conflict || failure->kind() == Kind::notFound
                || failure->kind() == Kind::unreadable);
        if (failure && !isHopeless) {
            ++each;
            continue;
        }
        *staged.arrival = failure || staged.steps.empty() ? Arrival::lost : Arrival::written;
        each = staged_.erase(each);
    }
    return staged_.size() < before;
}

std::shared_ptr<const CalendarFolder::Arrival> CalendarFolder::arrival(const QByteArray& file) const
{
    return staged_.at(file).arrival;
}

bool CalendarFolder::hasDepartures() const
{
    return std::ranges::any_of(staged_, [](const auto& each) {
        return std::ranges::any_of(each.second.steps,
            [](const Step& step) { return step.after && *step.after != Arrival::written; });
    });
}

void CalendarFolder::unstage(const QByteArray& file)
{
    if (const auto staged = staged_.find(file); staged != staged_.end()) {
        *staged->second.arrival = Arrival::lost;
        staged_.erase(staged);
    }
    isIndexed_ = false;
}

void CalendarFolder::reset()
{
    for (auto& [file, staged] : staged_)
        *staged.arrival = Arrival::lost;
    staged_.clear();
    isIndexed_ = false;
}

} // namespace quor::toolkit
