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
/// Changes are staged first, and a commit writes them. Reads return what is on disk at that moment, together
/// with the staged changes of items. Only a commit writes files, each atomically. If another program has
/// changed a file since it was read here, the changes made here are applied to the new content. If both
/// changed the same field, the save or the commit fails with `conflict`, and the other program's change
/// stays.
///
/// Broken files and files above 64 MiB are skipped, reported once in the error log, and never written.
/// Without access, reads return an empty result and changes fail with `accessDenied`. Events need access to
/// events, and reminders need access to reminders. `sources`, `saveCalendar`, `removeCalendar` and `commit`
/// need access to one of the two. `reset` and `refreshSourcesIfNecessary` need no access.
///
/// All functions can be called on any thread, also concurrently. See `EventStoreChanges` for reports of
/// changes.
class EventStore final {
public:
    using Result = EventStoreResult; ///< `nullopt`: success
    using AccessCompletion = std::function<void(bool granted, const Result& error)>;
    /// The argument is `nullopt` if access to reminders is not granted.
    using ReminderCompletion = std::function<void(std::optional<std::vector<std::shared_ptr<Reminder>>>)>;

    /// Does not read the disk. The first operation does.
    explicit EventStore(EventStoreOptions options = {});
    /// Staged changes are lost. Does not wait for requested completions: they can be called after the
    /// destructor has returned.
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

    // These return objects that exist only in memory until they are saved. Before that, a calendar needs a
    // source and an item needs a calendar. Otherwise the save fails with `invalid`.

    /// The calendar has no title and no colour.
    [[nodiscard]] std::shared_ptr<EventCalendar> newCalendar(EntityType type);
    /// The event has the machine's time zone. Its other fields have the defaults of `EventFields`: set at
    /// least the two dates.
    [[nodiscard]] std::shared_ptr<Event> newEvent();
    [[nodiscard]] std::shared_ptr<Reminder> newReminder();

    /// Creates the calendar, or writes its title and colour if they were changed here.
    ///
    /// With `commit` the calendar is written at once, and then all staged changes. The result is the
    /// calendar's own. If the calendar cannot be written, nothing else is written either, its change is not
    /// staged, and of a new calendar nothing stays on the disk. Without `commit` the change is staged: until
    /// the next commit, reads do not see it, and items cannot be saved into a new calendar.
    Result saveCalendar(const std::shared_ptr<EventCalendar>& calendar, bool commit);
    /// Removes the calendar with its items. With `commit` the staged changes of all other calendars are
    /// written, and then this calendar is removed. The result is that of the removal alone. A removal that
    /// fails is not staged. Without `commit` the calendar is removed at the next commit.
    ///
    /// Only the calendar's own files are removed. If the folder contains others, it stays as an empty
    /// calendar. The whole calendar stays if an item was moved from it to another calendar but could not be
    /// written there.
    Result removeCalendar(const std::shared_ptr<EventCalendar>& calendar, bool commit);

    // Saves and removals of items stage the change: from then on, reads of this store see it. If staging
    // fails, nothing changes. With `commit` all staged changes are then committed. The result is the first
    // failure, which can be the failure of another staged change. What the permissions do not allow to be
    // written is not staged, and fails with `readOnly`.

    /// For an occurrence of a series, `thisEvent` changes that occurrence alone. `futureEvents` changes it
    /// and all later occurrences, which become a new series. If it is the first occurrence, `futureEvents`
    /// changes the whole series, which keeps its identifier.
    Result saveEvent(const std::shared_ptr<Event>& event, EventSpan span, bool commit);
    /// For an occurrence of a series, `thisEvent` removes that occurrence alone, and `futureEvents` removes
    /// it and all later occurrences.
    Result removeEvent(const std::shared_ptr<Event>& event, EventSpan span, bool commit);
    Result saveReminder(const std::shared_ptr<Reminder>& reminder, bool commit);
    Result removeReminder(const std::shared_ptr<Reminder>& reminder, bool commit);

    /// Writes all staged changes. A failure does not stop it: it tries all changes and returns the first
    /// failure. Changes that fail with `conflict`, `notFound` or `unreadable` are dropped. Changes that fail
    /// for any other reason stay staged for the next commit. If a change was dropped while a calendar was
    /// saved or removed, that failure is the result of the next commit.
    Result commit();
    /// Drops all staged changes. Objects that were saved but not committed keep their values. Read them
    /// again before you save them again.
    void reset();
    /// Reads the lists of sources and calendars from disk now. All reads do this by themselves when the
    /// system reports a new or removed folder, so a call is needed only if the system does not report
    /// them, as on some network drives.
    void refreshSourcesIfNecessary();

    [[nodiscard]] EventPredicate predicateForEvents(Date start, Date end,
        const std::optional<std::vector<std::shared_ptr<EventCalendar>>>& calendars = std::nullopt) const;
    /// The events of the range, sorted by start. A series contributes one event for each of its occurrences
    /// in the range, at most 10,000.
    [[nodiscard]] std::vector<std::shared_ptr<Event>> eventsMatching(const EventPredicate& predicate);

    [[nodiscard]] ReminderPredicate predicateForIncompleteReminders(std::optional<Date> start,
        std::optional<Date> end,
        const std::optional<std::vector<std::shared_ptr<EventCalendar>>>& calendars = std::nullopt) const;
    /// Calls `completion` on a thread that the store owns, with the reminders in unspecified order.
    void fetchReminders(ReminderPredicate predicate, ReminderCompletion completion);

private:
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace quor::toolkit
