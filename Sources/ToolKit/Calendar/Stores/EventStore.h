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

/// The calendars and reminder lists of the desktop's user: folders of iCalendar files, shared with other
/// calendar programs and with synchronisers (Documentation/calendars.md tells what lies on disk).
///
/// Reads see what is on disk at that moment, whoever wrote it, and over it what was saved here without
/// commit. Nothing but a commit writes files, each atomically, and a file that another program changed
/// meanwhile is read anew and changed in the fields that were changed here: where both changed the same
/// field, the save or the commit answers `conflict` and the other program's change stands.
///
/// Broken files, and files above 64 MiB, are skipped, told once in the error log, and never written.
/// Without access reads are empty and changes answer `accessDenied`. Any thread, several at once.
/// See `EventStoreChanges` for notices.
class EventStore final {
public:
    using Result = EventStoreResult; ///< nullopt: success
    using AccessCompletion = std::function<void(bool granted, const Result& error)>;
    /// None without access.
    using ReminderCompletion = std::function<void(std::optional<std::vector<std::shared_ptr<Reminder>>>)>;

    /// Costs nothing: the first read looks at the disk.
    explicit EventStore(EventStoreOptions options = {});
    /// What was not committed is lost. Completions that are due still come.
    ~EventStore();
    EventStore(const EventStore&) = delete;
    EventStore& operator=(const EventStore&) = delete;

    /// `notDetermined` comes from an `authorization` of the options only.
    [[nodiscard]] static AuthorizationStatus authorizationStatus(
        EntityType type, const EventStoreOptions& options = {});

    /// Answers on a thread of the store's own. Asks nobody: the user's preferences decide.
    void requestFullAccessToEvents(AccessCompletion completion);
    void requestFullAccessToReminders(AccessCompletion completion);

    /// "local" first, then the others by title.
    [[nodiscard]] std::vector<EventSource> sources();
    /// By source, in the order of `sources`, and by title.
    [[nodiscard]] std::vector<std::shared_ptr<EventCalendar>> calendars(EntityType type);
    [[nodiscard]] std::vector<std::shared_ptr<EventCalendar>> calendars(
        const EventSource& source, EntityType type);

    [[nodiscard]] std::shared_ptr<EventCalendar> newCalendar(EntityType type);
    [[nodiscard]] std::shared_ptr<Event> newEvent();
    [[nodiscard]] std::shared_ptr<Reminder> newReminder();

    /// Makes a calendar, or writes its title and colour as far as they were changed here. `commit`: at once,
    /// with all that is staged; else at the next commit, and a new calendar is seen by reads only then.
    Result saveCalendar(const std::shared_ptr<EventCalendar>& calendar, bool commit);
    /// Removes the calendar with its items, here at the next commit unless `commit`. Files that are no items
    /// of a calendar's stay, and their folder; and all of it where an item that moves to another calendar
    /// could not be written there.
    Result removeCalendar(const std::shared_ptr<EventCalendar>& calendar, bool commit);

    /// Of one event of a series, `thisEvent` changes it alone, and `futureEvents` it and those behind it,
    /// which become a series of their own (with the whole series, from its first on, that one changes).
    /// Without `commit` the change is staged: reads of this store see it. A failure changes nothing.
    Result saveEvent(const std::shared_ptr<Event>& event, EventSpan span, bool commit);
    Result removeEvent(const std::shared_ptr<Event>& event, EventSpan span, bool commit);
    Result saveReminder(const std::shared_ptr<Reminder>& reminder, bool commit);
    Result removeReminder(const std::shared_ptr<Reminder>& reminder, bool commit);

    /// Writes what is staged. Answers the first failure, after trying everything: what met a conflict, or
    /// is gone, is dropped; what could not be written for another reason stays staged for the next commit.
    Result commit();
    /// Drops what is staged.
    void reset();
    /// Looks at all folders anew.
    void refreshSourcesIfNecessary();

    [[nodiscard]] EventPredicate predicateForEvents(Date start, Date end,
        const std::optional<std::vector<std::shared_ptr<EventCalendar>>>& calendars = std::nullopt) const;
    /// By start. Of a series, one for each time that it happens in the range, at most 10,000 of them.
    [[nodiscard]] std::vector<std::shared_ptr<Event>> eventsMatching(const EventPredicate& predicate);

    [[nodiscard]] ReminderPredicate predicateForIncompleteReminders(std::optional<Date> start,
        std::optional<Date> end,
        const std::optional<std::vector<std::shared_ptr<EventCalendar>>>& calendars = std::nullopt) const;
    /// Answers on a thread of the store's own.
    void fetchReminders(ReminderPredicate predicate, ReminderCompletion completion);

private:
    struct State;
    std::shared_ptr<State> state_;
};

} // namespace quor::toolkit
