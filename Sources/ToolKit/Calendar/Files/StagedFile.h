// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Files/ParsedFiles.h"
#include "ToolKit/Calendar/Items/ItemFile.h"

#include <memory>
#include <optional>
#include <vector>

namespace quor::toolkit {

/// Whether the edits of a staged file have reached the disk.
enum class WriteStatus {
    pending,
    written,
    abandoned, ///< they will never reach the disk
};

/// The order in which the files of a commit are written: an item that moves between two files is added to
/// the one before it is removed from the other, so that at every moment one of them contains it.
enum class CommitWave { additions, removals };

/// One file with edits that are not committed yet.
class StagedFile final {
public:
    /// `content` is what the file holds now, `nullopt` if there is no such file.
    StagedFile(QByteArray name, std::optional<FileContent> content);
    /// Abandons the edits, unless they were written.
    ~StagedFile();
    StagedFile(const StagedFile&) = delete;
    StagedFile& operator=(const StagedFile&) = delete;

    /// Applies the edit to the content that earlier edits gave the file. On failure nothing changes.
    /// With `condition`, the status of another file, the edit is committed only after that file was
    /// written, and is left out if that file is abandoned.
    [[nodiscard]] EventStoreResult add(ItemEdit edit, std::shared_ptr<const WriteStatus> condition);

    /// The content with all edits; `nullopt` if nothing is left in the file.
    [[nodiscard]] const std::optional<QByteArray>& bytes() const { return bytes_; }
    [[nodiscard]] const FileRecords& records() const { return records_; }
    [[nodiscard]] std::shared_ptr<const WriteStatus> status() const { return status_; }

    [[nodiscard]] bool hasEdits() const { return !edits_.empty(); }
    /// `removals` if nothing is left in the file, or an edit has a condition.
    [[nodiscard]] CommitWave wave() const;
    /// Whether the condition of any edit has this status.
    [[nodiscard]] bool depends(WriteStatus status) const;

    /// Writes the file, or removes it if nothing is left in it, and notes that in `files`. No condition may
    /// be pending. If another program has changed the file, the edits are applied again to the new content,
    /// and fail with `conflict` if both changed the same thing. Has no effect if all edits are left out.
    [[nodiscard]] EventStoreResult write(const CalendarDirectory& directory, ParsedFiles& files);

private:
    struct Edit {
        ItemEdit apply;
        std::shared_ptr<const WriteStatus> condition; ///< null: unconditional

        [[nodiscard]] bool depends(WriteStatus status) const { return condition && *condition == status; }
    };

    [[nodiscard]] EventStoreResult setContent(const ItemFile& file);
    [[nodiscard]] EventStoreResult applyAgain(const CalendarDirectory& directory);
    [[nodiscard]] EventStoreResult writeOnce(const CalendarDirectory& directory, ParsedFiles& files);

    const QByteArray name_;
    std::vector<Edit> edits_;
    std::shared_ptr<WriteStatus> status_ = std::make_shared<WriteStatus>(WriteStatus::pending);
    std::optional<FileIdentity> base_; ///< the state on disk that was edited; `nullopt`: there was no file
    std::optional<QByteArray> bytes_;
    FileRecords records_;
};

} // namespace quor::toolkit
