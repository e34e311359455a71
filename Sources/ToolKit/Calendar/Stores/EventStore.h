// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/EntityType.h"
#include "ToolKit/Calendar/Items/Event.h"
#include "ToolKit/Calendar/Items/EventCalendar.h"
#include "ToolKit/Calendar/Items/EventSource.h"
#include "ToolKit/Calendar/Items/EventStoreError.h"
#include "ToolKit/Calendar/Items/Reminder.h"
#include "ToolKit/Calendar/Stores/EventStoreOptions.h"
#include "ToolKit/Calendar/Stores/ItemPredicate.h"

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace quor::toolkit {

/// The calendars and reminder lists of the desktop's user: folders of iCalendar files, which other calendar
/// programs and synchronisers share. Documentation/calendars.md describes the files.
///
/// Reads return what is on disk at that moment, with the changes that were saved here and not committed. Only
/// a commit writes files, each atomically. If another program has changed a file since it was read here, the
/// changes made here are applied to the new content. If both changed the same field, the save or the commit
/// fails with `conflict`, and the other program's change stays.
///
/// Broken files and files above 64 MiB are skipped, reported once in the error log, and never written.
/// Without access, reads return nothing and changes fail with `accessDenied`. Any thread, several at once.
/// See `EventStoreChanges` for reports of changes.
class EventStore final {
public:
    using Result = EventStoreResult; ///< `nullopt`: success
    using AccessCompletion = std::function<void(bool granted, const Result& error)>;
    /// Called with `nullopt` without access.
    using ReminderCompletion = std::function<void(std::optional<std::vector<std::shared_ptr<Reminder>>>)>;

    /// Does not read the disk. The first operation does.
    explicit EventStore(EventStoreOptions options = {});
    /// Changes that were not committed are lost. Requested completions are still called.
    ~EventStore();
    EventStore(const EventStore&) = delete;
    EventStore& operator=(const EventStore&) = delete;

    /// Returns `notDetermined` only if `options.authorization` does.
    [[nodiscard]] static AuthorizationStatus authorizationStatus(
        EntityType type, const EventStoreOptions& options = {});

    /// Calls `completion` on a thread that the store owns. Does not ask the user, see
    /// `EventStoreOptions::authorization`. The error is always `nullopt`.
    void requestFullAccessToEvents(AccessCompletion completion);
    void requestFullAccessToReminders(AccessCompletion completion);

    /// "local" first, then the others by title.
    [[nodiscard]] std::vector<EventSource> sources();
    /// Sorted by source, in the order of `sources`, then by title.
    [[nodiscard]] std::vector<std::shared_ptr<EventCalendar>> calendars(EntityType type);
    [[nodiscard]] std::vector<std::shared_ptr<EventCalendar>> calendars(
        const EventSource& source, EntityType type);

    /// These return objects that exist only in memory until they are saved.
    [[nodiscard]] std::shared_ptr<EventCalendar> newCalendar(EntityType type);
    [[nodiscard]] std::shared_ptr<Event> newEvent();
    [[nodiscard]] std::shared_ptr<Reminder> newReminder();

    /// Creates the calendar, or writes its title and colour if they were changed here. With `commit` at once,
    /// together with all uncommitted changes. Without it at the next commit; until then, reads do not return
    /// a new calendar.
    Result saveCalendar(const std::shared_ptr<EventCalendar>& calendar, bool commit);
    /// Removes the calendar with its items, at once with `commit`, otherwise at the next commit. Files of
    /// other kinds stay, and with them the folder. The calendar stays as a whole if one of its items moves to
    /// another calendar and could not be written there.
    Result removeCalendar(const std::shared_ptr<EventCalendar>& calendar, bool commit);

    /// Saves or removes an event. For an occurrence of a series, `thisEvent` changes that occurrence alone.
    /// `futureEvents` changes it and all later ones, which become a series of their own, or the whole series
    /// if it is the first occurrence.
    ///
    /// Without `commit` the change is staged: reads of this store see it, and the next commit writes it. If
    /// staging fails, nothing changes.
    Result saveEvent(const std::shared_ptr<Event>& event, EventSpan span, bool commit);
    Result removeEvent(const std::shared_ptr<Event>& event, EventSpan span, bool commit);
    Result saveReminder(const std::shared_ptr<Reminder>& reminder, bool commit);
    Result removeReminder(const std::shared_ptr<Reminder>& reminder, bool commit);

    /// Writes all staged changes, and returns the first failure. Changes that fail with `conflict`,
    /// `notFound` or `unreadable` are dropped. Changes that fail for any other reason stay staged for the
    /// next commit.
    Result commit();
    /// Drops all staged changes.
    void reset();
    /// Lists all folders again.
    void refreshSourcesIfNecessary();

    [[nodiscard]] EventPredicate predicateForEvents(Date start, Date end,
        const std::optional<std::vector<std::shared_ptr<EventCalendar>>>& calendars = std::nullopt) const;
    /// Sorted by start. Contains one event for each occurrence of a series in the range, at most 10,000 of
    /// each series.
    [[nodiscard]] std::vector<std::shared_ptr<Event>> eventsMatching(const EventPredicate& predicate);

    [[nodiscard]] ReminderPredicate predicateForIncompleteReminders(std::optional<Date> start,
        std::optional<Date> end,
        const std::optional<std::vector<std::shared_ptr<EventCalendar>>>& calendars = std::nullopt) const;
    /// Calls `completion` on a thread that the store owns.
    void fetchReminders(ReminderPredicate predicate, ReminderCompletion completion);

private:
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace quor::toolkit
