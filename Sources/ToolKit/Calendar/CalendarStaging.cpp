// SPDX-License-Identifier: MIT
// What a calendar's files shall be, and how it comes to the disk.
#include "ToolKit/Calendar/CalendarFolder.h"

namespace quor::toolkit {

namespace {

using Kind = EventStoreError::Kind;

EventStoreError unreadable(const QByteArray& name)
{
    return {Kind::unreadable, QString::fromUtf8(name) + QStringLiteral(": cannot be read as a calendar")};
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

std::optional<EventStoreError> CalendarFolder::stage(const QByteArray& file, ItemEdit edit)
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
    staged.edits.push_back(std::move(edit));
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
    if (directory.identity(name) != staged.base) {
        // Another program was here: the edits are made again, on what it wrote.
        const auto content = directory.read(name);
        std::optional<ItemFile> file = !content ? ItemFile()
            : content->bytes                    ? ItemFile::parse(*content->bytes)
                                                : std::nullopt;
        if (!file)
            return unreadable(name);
        for (const ItemEdit& edit : staged.edits) {
            if (auto failure = edit(*file))
                return failure;
        }
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

void CalendarFolder::commit(Writes writes, std::vector<EventStoreError>& failures)
{
    if (staged_.empty())
        return;
    const CalendarDirectory directory(root_, path_);
    directory.lock();
    isIndexed_ = false;
    for (auto each = staged_.begin(); each != staged_.end();) {
        if (each->second.bytes.has_value() != (writes == Writes::contents)) {
            ++each;
            continue;
        }
        std::optional<EventStoreError> failure;
        if (!directory.isOpen())
            failure = systemError(ENOENT, path_.identifier());
        for (int tries = 0; directory.isOpen() && tries < mostTries; ++tries) {
            failure = write(directory, each->first, each->second);
            // A conflict between the edits themselves stays one.
            if (!failure || failure->kind() != Kind::conflict
                || directory.identity(each->first) == each->second.base)
                break;
        }
        if (failure)
            failures.push_back(*failure);
        const bool isHopeless = failure
            && (failure->kind() == Kind::conflict || failure->kind() == Kind::notFound
                || failure->kind() == Kind::unreadable);
        each = !failure || isHopeless ? staged_.erase(each) : std::next(each);
    }
}

void CalendarFolder::unstage(const QByteArray& file)
{
    staged_.erase(file);
    isIndexed_ = false;
}

void CalendarFolder::reset()
{
    staged_.clear();
    isIndexed_ = false;
}

} // namespace quor::toolkit
