// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Files/StagedFile.h"

#include <map>
#include <memory>
#include <vector>

namespace quor::toolkit {

/// The files of one calendar that have edits which are not committed yet.
class StagingArea final {
public:
    [[nodiscard]] const std::map<QByteArray, StagedFile>& files() const { return files_; }
    /// Returns null for a file without edits.
    [[nodiscard]] const StagedFile* find(const QByteArray& name) const;

    /// Adds an edit to a file, see `StagedFile::add`. On failure nothing changes. Fails with `unreadable`
    /// for a file that is broken or too large, and with `readOnly` if it could never be written.
    [[nodiscard]] EventStoreResult stage(const CalendarDirectory& directory, const QByteArray& name,
        ItemEdit edit, std::shared_ptr<const WriteStatus> condition);
    void unstage(const QByteArray& name) { files_.erase(name); }
    void clear() { files_.clear(); }

    /// Whether an item that moves to another calendar is still needed here.
    [[nodiscard]] bool hasUnfinishedMoves() const;
    /// Whether a `commit` of the wave would write anything now.
    [[nodiscard]] bool isAnyReady(CommitWave wave) const;

    /// Writes the files of that wave that wait for no other file, and appends failures to `failures`. A file
    /// that was written, or never can be, is not staged any more. Any other stays for the next commit.
    /// Returns whether a file left the staging area, after which files that waited for it can be written.
    bool commit(CommitWave wave, const CalendarDirectory& directory, ParsedFiles& files,
        std::vector<EventStoreError>& failures);

private:
    std::map<QByteArray, StagedFile> files_;
};

} // namespace quor::toolkit
