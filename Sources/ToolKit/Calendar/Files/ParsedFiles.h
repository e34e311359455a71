// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Files/CalendarDirectory.h"
#include "ToolKit/Calendar/Items/ItemRecord.h"

#include <map>
#include <optional>
#include <set>

namespace quor::toolkit {

/// The item files of one calendar as they were last read from the disk, parsed.
class ParsedFiles final {
public:
    struct File {
        FileIdentity identity;
        std::optional<FileRecords> records; ///< `nullopt` if the file is broken or cannot be read
    };

    /// Makes the next `update` compare all files with the disk.
    void markAllChanged() { changed_.reset(); }
    /// Makes the next `update` read these files.
    void markChanged(const std::set<QByteArray>& names);
    [[nodiscard]] bool isCurrent() const { return changed_ && changed_->empty(); }

    /// Reads the files that changed. Logs those that cannot be read, and those with items that have no
    /// identifier. While the process can open no files, the records stay, and the next call tries again.
    /// Returns whether any record may have changed.
    bool update(const CalendarDirectory& directory, const CalendarPath& path);

    [[nodiscard]] const std::map<QByteArray, File>& files() const { return files_; }
    /// For a file that this process has written itself.
    void set(const QByteArray& name, File file) { files_.insert_or_assign(name, std::move(file)); }
    void remove(const QByteArray& name) { files_.erase(name); }

private:
    bool compareAll(const CalendarDirectory& directory);
    /// Returns false if the file cannot be opened at the moment.
    bool read(const CalendarDirectory& directory, const CalendarPath& path, const QByteArray& name);

    std::map<QByteArray, File> files_;
    std::optional<std::set<QByteArray>> changed_; ///< the files to read; `nullopt`: not known yet
};

} // namespace quor::toolkit
