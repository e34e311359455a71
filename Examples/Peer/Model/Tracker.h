// SPDX-License-Identifier: MIT
#pragma once

#include "Peer/Model/Settings.h"
#include "Peer/Model/Task.h"
#include "Peer/Model/TimeEntry.h"

#include <QStringList>

#include <optional>
#include <utility>
#include <vector>

namespace quor::peer {

class Store;

/// What became of a change.
enum class Outcome {
    done,
    notStored, ///< done, but the disk refused it: it gets there with a later change
    // Nothing was changed:
    unknownTask,
    alreadyRunning,
    notRunning,
};

/// The tasks, the time entries and the settings, and every change of them.
///
/// All is held in memory, and each change is on disk before it is told as done. A task has at most one
/// running timer; several tasks may run at once, unless `Settings::singleTimer` says otherwise. Borrows the
/// clock and the store, which must outlive it. References into it hold until the next change. Main
/// thread only.
class Tracker final {
public:
    /// Empty until `load`.
    Tracker(const platform::Clock& clock, Store& store);

    /// Takes up what the store holds; timers that ran go on running.
    void load();

    [[nodiscard]] const std::vector<Task>& tasks() const { return tasks_; } ///< in order of creation
    [[nodiscard]] const std::vector<TimeEntry>& entries() const { return entries_; } ///< in no order
    [[nodiscard]] const Settings& settings() const { return settings_; }

    [[nodiscard]] const Task* task(const QString& id) const; ///< null where there is none
    [[nodiscard]] const TimeEntry* runningEntry(const QString& taskID) const; ///< null if it does not run
    [[nodiscard]] std::vector<TimeEntry> runningEntries() const; ///< the earliest start first

    /// The new tasks are the last ones then, in the order of their names here.
    Outcome addTasks(const QStringList& names, std::optional<std::uint32_t> color);

    /// Starts a timer `ago` seconds in the past.
    Outcome start(const QString& taskID, double ago = 0);

    /// Ends the task's timer `delta` seconds from now, but not before its start and not after now.
    Outcome stop(const QString& taskID, double delta = 0);
    Outcome stopAll(double delta = 0);

    /// Moves the start of the task's timer by `delta` seconds, but not beyond now. A delta of 0 moves
    /// it back to where the last entry before it ended; without such an entry it stays.
    Outcome adjust(const QString& taskID, double delta);

    Outcome setSettings(const Settings& settings);

private:
    [[nodiscard]] platform::Date endOfLastEntryBefore(platform::Date start) const;
    Outcome end(std::vector<TimeEntry> running, platform::Date moment);
    Outcome store(const std::vector<TimeEntry>& changed);

    const platform::Clock& clock_;
    Store& store_;
    std::vector<Task> tasks_;
    std::vector<TimeEntry> entries_;
    Settings settings_;
};

} // namespace quor::peer
