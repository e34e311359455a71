// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Stores/EventStoreClient.h"
#include "ToolKit/Deferred/DelayedAction.h"

#include <QColor>
#include <QFuture>
#include <QString>

#include <functional>
#include <memory>
#include <variant>
#include <vector>

namespace quor::toolkit {

/// The user's calendars and their events.
///
///     CalendarStore store;
///     store.requestAccess([&](bool granted) {
///         if (auto event = store.newEvent(identifier)) {
///             event->setTitle(u"Design"_s);
///             ...
///             store.saveEvent(event);
///         }
///     });
///
/// Saving or deleting an event does not write it at once. One commit follows when a second has passed without
/// a further change, so that a burst of changes is written together. Reads see the changes before the commit.
/// Changes are lost if the store ends within that second. Failures go to the error log, not to the caller.
/// See `EventStoreClient` for threads and access.
class CalendarStore final : public EventStoreClient {
public:
    using Events = std::vector<std::shared_ptr<Event>>;

    /// An entry of `calendarSources`.
    struct CalendarSource {
        struct Calendar {
            std::shared_ptr<EventCalendar> calendar;
        };
        struct Source {
            EventSource source;
        };

        std::variant<Calendar, Source> value;
    };

    explicit CalendarStore(EventStoreOptions options = {});
    ~CalendarStore();

    /// Reads the events of that calendar in [startDate, endDate) on the queue, after all changes that were
    /// saved before this call, and calls `completion` on the main queue. Without access or such a calendar,
    /// calls it at once, on the calling thread, with an empty list.
    void eventsFor(const QString& calendarIdentifier, Date startDate, Date endDate,
        std::function<void(const Events&)> completion);
    /// The same, as a future.
    [[nodiscard]] QFuture<Events> eventsFor(const QString& calendarIdentifier, Date startDate, Date endDate);

    /// Returns null if there is no such calendar, or if it holds reminders only. Reads on the calling thread.
    [[nodiscard]] std::shared_ptr<EventCalendar> calendar(const QString& identifier) const;

    /// Returns a new event of that calendar, for the caller to fill in and save. Returns null if there is no
    /// such calendar.
    [[nodiscard]] std::shared_ptr<Event> newEvent(const QString& calendarIdentifier) const;

    /// Saves the event, on the queue. For an occurrence of a series, saves that occurrence alone. Saves the
    /// values that the fields have when the queue runs the save, usually at once. A null event is ignored.
    void saveEvent(const std::shared_ptr<Event>& event);
    /// Deletes the event, on the queue. For an occurrence of a series, deletes that occurrence alone. A null
    /// event is ignored.
    void deleteCalendarEvent(const std::shared_ptr<Event>& event);

    /// Removes the calendar with all its items, on the queue. Commits at once, and with it all changes that
    /// were saved before; if one of those fails, the next commit reports it. Has no effect if there is no
    /// such calendar.
    void deleteCalendar(const QString& identifier);

    /// Returns each source, followed by its calendars that can hold events: a tree of two levels as a flat
    /// list. Reads on the calling thread.
    [[nodiscard]] std::vector<CalendarSource> calendarSources() const;

    /// Writes a new, empty calendar for events on the calling thread, and then all changes that were saved
    /// before; if one of those fails, the next commit reports it. Returns null if the calendar cannot be
    /// written.
    std::shared_ptr<EventCalendar> createCalendar(
        const EventSource& source, const QString& title, const QColor& color);

private:
    using Change = EventStore::Result (EventStore::*)(
        const std::shared_ptr<Event>& event, EventSpan span, bool commit);

    [[nodiscard]] std::function<Events()> reader(
        const QString& calendarIdentifier, Date startDate, Date endDate) const;
    void submit(Change change, const std::shared_ptr<Event>& event, const QString& messageStem,
        const char* function = __builtin_FUNCTION(), int line = __builtin_LINE());
    void scheduleCommit();
    void saveDelayed();

    DelayedAction delayedAction_{1.0};
};

} // namespace quor::toolkit
