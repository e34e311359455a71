// SPDX-License-Identifier: MIT
#pragma once

#include "Peer/Model/Settings.h"
#include "Peer/Model/Task.h"
#include "Peer/Model/TimeEntry.h"
#include "ToolKit/Data/Lists/PersistableList.h"

#include <optional>
#include <vector>

namespace quor::peer {

/// The tracker's data on disk: one list each of tasks, time entries and settings, by identifier, in
/// folders of those names.
///
/// A save returns once the change is in its file; false if the disk refused it. It is then kept in
/// memory and goes to disk with the next save of its kind that succeeds. What does not read as a
/// record is passed over and stays in its file. Main thread only.
class Store final {
public:
    /// `folder` exists, and is this store's alone. Without one, nothing is written.
    explicit Store(const std::optional<QString>& folder);

    // All in no order.
    [[nodiscard]] std::vector<Task> tasks() const;
    [[nodiscard]] std::vector<TimeEntry> entries() const;
    [[nodiscard]] Settings settings() const; ///< what is not stored has its default

    bool save(const std::vector<Task>& tasks);
    bool save(const std::vector<TimeEntry>& entries);
    bool save(const Settings& settings);

private:
    using List = toolkit::PersistableList<QJsonValue>;
    using Records = std::vector<List::Entry>;

    struct Shelf {
        explicit Shelf(const std::optional<QString>& listFolder);
        bool save(const Records& records);

        std::optional<QString> folder;
        List list;
    };

    Shelf tasks_;
    Shelf entries_;
    Shelf settings_;
};

} // namespace quor::peer
