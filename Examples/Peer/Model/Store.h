// SPDX-License-Identifier: MIT
#pragma once

#include "Peer/Model/Settings.h"
#include "Peer/Model/Task.h"
#include "Peer/Model/TimeEntry.h"
#include "ToolKit/Data/Lists/PersistableList.h"

#include <optional>
#include <vector>

namespace quor::peer {

/// The tracker's data on disk: a list each of tasks, time entries and settings, by identifier, in subfolders
/// with these names.
///
/// A save returns when the changes are in their files. It returns false if the disk refused them; they then
/// stay in memory, and the next successful save of the same list writes them too. A stored value that is no
/// valid record is not returned, but stays in its file. Main thread only.
class Store final {
public:
    /// `folder` must exist, and no other store may use it. Without a folder, everything is in memory only.
    explicit Store(const std::optional<QString>& folder);

    // In no particular order.
    [[nodiscard]] std::vector<Task> tasks() const;
    [[nodiscard]] std::vector<TimeEntry> entries() const;
    [[nodiscard]] Settings settings() const; ///< The default for each setting that is not stored.

    bool save(const std::vector<Task>& tasks);
    bool save(const std::vector<TimeEntry>& entries);
    bool save(const Settings& settings);

private:
    using List = toolkit::PersistableList<QJsonValue>;
    using Records = std::vector<List::Entry>;

    /// A list that reports whether the disk has taken a change.
    struct RecordList {
        explicit RecordList(const std::optional<QString>& listFolder);
        bool save(const Records& records);

        std::optional<QString> folder;
        List list;
    };

    RecordList tasks_;
    RecordList entries_;
    RecordList settings_;
};

} // namespace quor::peer
