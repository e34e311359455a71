// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Files/StagedFile.h"

#include "ToolKit/Calendar/Items/ItemErrors.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace quor::toolkit {

namespace {

// If another program changes the file during each of this many attempts, the edits fail with a conflict.
constexpr int mostAttempts = 5;

} // namespace

StagedFile::StagedFile(QByteArray name, std::optional<FileContent> content)
    : name_(std::move(name))
{
    if (content) {
        base_ = content->identity;
        bytes_ = std::move(content->bytes);
    }
}

StagedFile::~StagedFile()
{
    if (*status_ == WriteStatus::pending)
        *status_ = WriteStatus::abandoned;
}

EventStoreResult StagedFile::add(ItemEdit edit, std::shared_ptr<const WriteStatus> condition)
{
    std::optional<ItemFile> file = bytes_ ? ItemFile::parse(*bytes_) : ItemFile();
    if (!file)
        return unreadable(QString::fromUtf8(name_));
    EventStoreResult failure = edit(*file);
    if (!failure)
        failure = setContent(*file);
    if (!failure)
        edits_.push_back({std::move(edit), std::move(condition)});
    return failure;
}

EventStoreResult StagedFile::setContent(const ItemFile& file)
{
    if (file.isEmpty()) {
        bytes_.reset();
        records_ = {};
        return std::nullopt;
    }
    QByteArray bytes = file.bytes();
    // A file must not be written that could not be read again.
    const auto again = ItemFile::parse(bytes);
    if (!again || bytes.size() > largestItemFile)
        return invalid(QString::fromUtf8(name_) + QStringLiteral(": the item does not fit in a file"));
    bytes_ = std::move(bytes);
    records_ = again->records();
    return std::nullopt;
}

CommitWave StagedFile::wave() const
{
    const bool removes
        = !bytes_ || std::ranges::any_of(edits_, [](const Edit& each) { return each.condition != nullptr; });
    return removes ? CommitWave::removals : CommitWave::additions;
}

bool StagedFile::depends(WriteStatus status) const
{
    return std::ranges::any_of(edits_, [&](const Edit& each) { return each.depends(status); });
}

EventStoreResult StagedFile::applyAgain(const CalendarDirectory& directory)
{
    const auto content = directory.read(name_);
    if (content && !content->bytes)
        return content->failure(name_);
    std::optional<ItemFile> file = content ? ItemFile::parse(*content->bytes) : ItemFile();
    if (!file)
        return unreadable(QString::fromUtf8(name_));
    for (const Edit& each : edits_) {
        if (auto failure = each.depends(WriteStatus::abandoned) ? std::nullopt : each.apply(*file))
            return failure;
    }
    base_ = content ? std::optional(content->identity) : std::nullopt;
    return setContent(*file);
}

EventStoreResult StagedFile::writeOnce(const CalendarDirectory& directory, ParsedFiles& files)
{
    if (depends(WriteStatus::abandoned) || directory.identity(name_) != base_) {
        if (auto failure = applyAgain(directory))
            return failure;
    }
    if (!bytes_) {
        if (auto failure = base_ ? directory.remove(name_, *base_) : std::nullopt)
            return failure;
        files.remove(name_);
    } else {
        FileIdentity written;
        if (auto failure = directory.write(name_, *bytes_, base_, &written))
            return failure;
        files.set(name_, {written, std::move(records_)});
    }
    *status_ = WriteStatus::written;
    return std::nullopt;
}

EventStoreResult StagedFile::write(const CalendarDirectory& directory, ParsedFiles& files)
{
    if (std::ranges::all_of(edits_, [](const Edit& each) { return each.depends(WriteStatus::abandoned); }))
        return std::nullopt;
    if (!directory.isOpen())
        return systemError(directory.openError(), name_);
    EventStoreResult failure;
    for (int attempt = 0; attempt < mostAttempts; ++attempt) {
        failure = writeOnce(directory, files);
        // A conflict of the edits with the file as it is now is final.
        if (!failure || failure->kind() != EventStoreError::Kind::conflict
            || directory.identity(name_) == base_)
            break;
    }
    return failure;
}

} // namespace quor::toolkit
