// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Files/CalendarDirectory.h"
#include "ToolKit/Calendar/Items/EventCalendar.h"
#include "ToolKit/Calendar/Items/ItemFile.h"

#include <functional>
#include <map>
#include <memory>
#include <set>
#include <vector>

namespace quor::toolkit {

/// One calendar: what was read of its files, by time, and what is staged for them. One thread at a time.
class CalendarFolder final {
public:
    CalendarFolder(QByteArray root, CalendarPath path);

    // What changed on disk; looked at by the next read.
    void invalidate() { isStale_ = true; }
    void invalidate(const std::set<QByteArray>& names);

    /// The calendar as its small files tell.
    [[nodiscard]] std::shared_ptr<EventCalendar> calendar(const EventSource& source);

    using EventVisit = std::function<void(
        const QByteArray& file, const EventRecord&, std::optional<Date> occurrence, const EventFields&)>;
    void visitEvents(Date start, Date end, const EventVisit& visit);
    void visitReminders(const std::function<void(const QByteArray& file, const ReminderRecord&)>& visit);

    /// The file that holds the item; `guess` where it is there. Empty: none.
    [[nodiscard]] QByteArray fileOf(const QString& uid, const QByteArray& guess);
    [[nodiscard]] const FileRecords* records(const QByteArray& file);
    /// The file as it is with what is staged for it, none where it is broken or not there.
    [[nodiscard]] std::optional<ItemFile> content(const QByteArray& file);
    /// A name for a new item's file that nothing has.
    [[nodiscard]] QByteArray newFile(const QString& uid);

    /// What became of a staged file, for those changes that must wait for it.
    enum class Arrival { pending, written, lost };

    /// Makes the edit on the file as it is with what is staged. A failure changes nothing. An edit `after`
    /// another file takes away what that one has: it is written behind it, and dropped if that one is lost.
    [[nodiscard]] std::optional<EventStoreError> stage(
        const QByteArray& file, ItemEdit edit, std::shared_ptr<const Arrival> after = nullptr);
    /// Of a file that something is staged for.
    [[nodiscard]] std::shared_ptr<const Arrival> arrival(const QByteArray& file) const;
    [[nodiscard]] bool hasStaged() const { return !staged_.empty(); }
    /// Whether something that moves from here to another calendar is not there yet.
    [[nodiscard]] bool hasDepartures() const;
    enum class Writes { contents, removals };
    /// Writes files that nothing is taken away from, or the others. Adds failures. Whether any file is done
    /// with, for which others may wait.
    bool commit(Writes writes, std::vector<EventStoreError>& failures);
    /// Drops what is staged for one file.
    void unstage(const QByteArray& file);
    void reset();

private:
    struct Entry {
        FileIdentity identity;
        std::shared_ptr<const FileRecords> records; ///< null: broken
    };
    struct Step {
        ItemEdit edit;
        std::shared_ptr<const Arrival> after; ///< null: waits for nothing
    };
    struct Staged {
        std::vector<Step> steps;
        std::shared_ptr<Arrival> arrival = std::make_shared<Arrival>(Arrival::pending);
        bool isOutdated = false; ///< the steps are to be made again
        std::optional<FileIdentity> base; ///< none: a new file
        std::optional<QByteArray> bytes; ///< none: nothing is left in it
        std::shared_ptr<const FileRecords> records;
    };
    struct Timed {
        Date start;
        Date end;
        const QByteArray* file;
        const EventRecord* record;
    };

    void refresh();
    void read(const CalendarDirectory& directory, const QByteArray& name);
    void index();
    void indexFile(const QByteArray& name, const FileRecords& records);
    [[nodiscard]] std::optional<EventStoreError> write(
        const CalendarDirectory& directory, const QByteArray& name, Staged& staged);
    [[nodiscard]] std::optional<EventStoreError> writeRepeatedly(
        const CalendarDirectory& directory, const QByteArray& name, Staged& staged);
    static void dropLostSteps(Staged& staged);
    /// Each file's records, staged ones in place of those on disk.
    template <class Visit>
    void visitFiles(Visit visit) const;

    QByteArray root_;
    CalendarPath path_;
    std::map<QByteArray, Entry> files_;
    std::map<QByteArray, Staged> staged_;
    bool isStale_ = true;
    std::set<QByteArray> staleNames_;
    QString title_;
    QColor color_;

    bool isIndexed_ = false;
    std::vector<Timed> short_; ///< those that happen once and take up to a month, by start
    std::vector<Timed> long_;
    std::vector<Timed> series_;
    bool holdsReminders_ = false;
};

} // namespace quor::toolkit
