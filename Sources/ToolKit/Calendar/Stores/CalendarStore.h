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
/// Saving or deleting an event writes nothing by itself: one commit follows as soon as a second has passed
/// without another, so that a burst of changes is written at once. Reads see the changes before. A store
/// that ends within that second loses them. No operation tells its caller of a failure; all go to the error
/// log. See `EventStoreClient` for threads and access.
class CalendarStore final : public EventStoreClient {
public:
    using Events = std::vector<std::shared_ptr<Event>>;

    /// An entry of a list that reads as a tree of two levels.
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

    /// The events of that calendar in [startDate, endDate), read on the queue, behind what was saved before
    /// this call. Answers on the main queue; without access or such a calendar at once, on the calling
    /// thread, with an empty list.
    void eventsFor(const QString& calendarIdentifier, Date startDate, Date endDate,
        std::function<void(const Events&)> completion);
    /// The same, to wait for.
    [[nodiscard]] QFuture<Events> eventsFor(const QString& calendarIdentifier, Date startDate, Date endDate);

    /// Null if there is none that holds events. Reads on the calling thread.
    [[nodiscard]] std::shared_ptr<EventCalendar> calendar(const QString& identifier) const;

    /// An event of that calendar, which is yet to be filled in and saved. Null if there is no such calendar.
    [[nodiscard]] std::shared_ptr<Event> newEvent(const QString& calendarIdentifier) const;

    /// Of a series, this one event alone. The fields count as they are when the queue comes to it, mostly
    /// at once.
    void saveEvent(const std::shared_ptr<Event>& event);
    void deleteCalendarEvent(const std::shared_ptr<Event>& event);

    /// Removes the calendar with all that is in it, for good, as soon as the queue comes to it.
    void deleteCalendar(const QString& identifier);

    /// Each source, with its calendars behind it.
    [[nodiscard]] std::vector<CalendarSource> calendarSources() const;

    /// Writes a new, empty calendar, on the calling thread. Null if that failed.
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
