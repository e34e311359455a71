// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Files/CalendarProperties.h"
#include "ToolKit/Calendar/Files/ItemIndex.h"
#include "ToolKit/Calendar/Files/ParsedFiles.h"
#include "ToolKit/Calendar/Files/StagingArea.h"
#include "ToolKit/Calendar/Items/EventCalendar.h"

#include <functional>
#include <memory>
#include <optional>
#include <set>
#include <vector>

namespace quor::toolkit {

/// One calendar as its store sees it: the items on disk, with the staged edits applied to them. Reads the
/// disk only for files that were marked as changed. One thread at a time.
class CalendarFolder final {
public:
    CalendarFolder(QByteArray root, CalendarPath path);

    [[nodiscard]] const CalendarPath& path() const { return path_; }
    [[nodiscard]] QString identifier() const { return path_.identifier(); }

    /// Makes the next read look for changes of any file.
    void markAllChanged() { files_.markAllChanged(); }
    void markChanged(const std::set<QByteArray>& files) { files_.markChanged(files); }

    /// Returns a new object that describes the calendar.
    [[nodiscard]] std::shared_ptr<EventCalendar> calendar(const EventSource& source);
    /// Visits the events that overlap [start, end), in no order.
    void visitEvents(Date start, Date end, const EventVisit& visit);
    void visitReminders(const std::function<void(const QByteArray& file, const ReminderRecord&)>& visit);

    /// Returns the name of the file that holds the item, or an empty name if there is none. Looks into
    /// `lastKnown` first.
    [[nodiscard]] QByteArray fileOf(const QString& uid, const QByteArray& lastKnown);
    /// Returns null if there is no such file, or it cannot be read.
    [[nodiscard]] const FileRecords* records(const QByteArray& file);
    /// Returns `nullopt` if there is no such file, or it cannot be read.
    [[nodiscard]] std::optional<ItemFile> content(const QByteArray& file);
    /// Returns an unused name for the file of a new item.
    [[nodiscard]] QByteArray newFile(const QString& uid);

    /// Adds an edit of a file, see `StagingArea::stage`. Fails with `notFound` if the folder is gone.
    [[nodiscard]] EventStoreResult stage(
        const QByteArray& file, ItemEdit edit, std::shared_ptr<const WriteStatus> condition = nullptr);
    /// The status of a staged file, as a condition for edits of others.
    [[nodiscard]] std::shared_ptr<const WriteStatus> status(const QByteArray& file) const;
    /// Drops all edits of one file, or of all files.
    void unstage(const QByteArray& file);
    void unstageAll();
    [[nodiscard]] bool hasStagedFiles() const { return !staged_.files().empty(); }
    /// Whether an item that moves from here to another calendar has not arrived there.
    [[nodiscard]] bool hasUnfinishedMoves() const { return staged_.hasUnfinishedMoves(); }

    /// See `StagingArea::commit`.
    bool commit(CommitWave wave, std::vector<EventStoreError>& failures);
    /// Returns the error of a future `removeFromDisk`, if the permissions do not allow it.
    [[nodiscard]] EventStoreResult removalObstacle() const;
    /// Removes the calendar's files, and the folder if nothing else is in it. Drops all edits on success.
    [[nodiscard]] EventStoreResult removeFromDisk();

private:
    void refresh();
    const ItemIndex& index();
    [[nodiscard]] std::vector<NamedRecords> visibleRecords() const;

    const QByteArray root_;
    const CalendarPath path_;
    CalendarProperties properties_;
    ParsedFiles files_;
    StagingArea staged_;
    std::optional<ItemIndex> index_; ///< exists only while its records are current
};

} // namespace quor::toolkit
