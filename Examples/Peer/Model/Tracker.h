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

/// The result of a change.
enum class Outcome {
    done,
    notStored, ///< done, but could not be written to disk; it is written with a later change
    // Refused, without any change:
    unknownTask,
    alreadyRunning,
    notRunning,
};

/// The tasks, the time entries and the settings, and all changes of them.
///
/// Everything is held in memory. A change that returns `Outcome::done` is on disk. A task has at most one
/// running timer. Several timers can run at the same time, unless `Settings::singleTimer` is set. The clock
/// and the store are borrowed and must outlive it. Pointers and references that it returns are valid until
/// the next change. Main thread only.
class Tracker final {
public:
    /// Empty until `load`.
    Tracker(const platform::Clock& clock, Store& store);

    /// Loads the content of the store. Timers that were running continue to run.
    void load();

    [[nodiscard]] const std::vector<Task>& tasks() const { return tasks_; } ///< in order of creation
    [[nodiscard]] const std::vector<TimeEntry>& entries() const { return entries_; } ///< in no order
    [[nodiscard]] const Settings& settings() const { return settings_; }

    [[nodiscard]] const Task* task(const QString& id) const; ///< null if there is none
    /// Returns null if the task does not run.
    [[nodiscard]] const TimeEntry* runningEntry(const QString& taskID) const;
    [[nodiscard]] std::vector<TimeEntry> runningEntries() const; ///< by start, earliest first

    /// Appends a task for each name, in this order.
    Outcome addTasks(const QStringList& names, std::optional<std::uint32_t> color);

    /// Starts a timer whose start lies `ago` seconds in the past. A negative `ago` means 0.
    Outcome start(const QString& taskID, double ago = 0);

    /// Ends the task's timer `delta` seconds from now, clamped to between its start and now.
    Outcome stop(const QString& taskID, double delta = 0);
    /// Ends all timers in the same way.
    Outcome stopAll(double delta = 0);

    /// Moves the start of the task's timer by `delta` seconds, but not later than now. A `delta` of 0 moves
    /// it back to the end of the last entry that ended before it; if there is no such entry, the start does
    /// not change.
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
