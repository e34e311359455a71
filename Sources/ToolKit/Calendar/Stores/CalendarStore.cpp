// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Stores/CalendarStore.h"

#include "Platform/Concurrency/MainQueue.h"
#include "Platform/Lifetime/WhileAlive.h"
#include "ToolKit/Calendar/Stores/AwaitedAnswer.h"
#include "ToolKit/Logging/Logger.h"

#include <algorithm>
#include <utility>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

using platform::MainQueue;
using platform::whileAlive;

namespace {

std::shared_ptr<EventCalendar> calendarOf(EventStore& store, const QString& identifier)
{
    const auto calendars = store.calendars(EntityType::event);
    const auto found = std::find_if(calendars.begin(), calendars.end(),
        [&](const auto& calendar) { return calendar->calendarIdentifier() == identifier; });
    return found == calendars.end() ? nullptr : *found;
}

// The log names the operation, not the closure that it runs in.
void logFailure(const EventStore::Result& result, const QString& messageStem, const char* function, int line)
{
    if (result)
        Logger::log(QString(messageStem + result->description()), __FILE__, function, line, true);
}

} // namespace

CalendarStore::CalendarStore(EventStoreOptions options)
    : EventStoreClient(EntityType::event, "CalendarQueue"_ba, std::move(options))
{
}

CalendarStore::~CalendarStore()
{
    delayedAction_.cancel();
}

void CalendarStore::eventsFor(const QString& calendarIdentifier, Date startDate, Date endDate,
    std::function<void(const Events&)> completion)
{
    if (!completion)
        return;
    auto read = reader(calendarIdentifier, startDate, endDate);
    if (!read)
        return completion({});
    accessQueue().async([read = std::move(read), completion = std::move(completion)]() mutable {
        MainQueue::async([completion = std::move(completion), events = read()] { completion(events); });
    });
}

QFuture<CalendarStore::Events> CalendarStore::eventsFor(
    const QString& calendarIdentifier, Date startDate, Date endDate)
{
    return awaitedAnswer<Events>([&](auto resume) {
        auto read = reader(calendarIdentifier, startDate, endDate);
        if (!read)
            return resume({});
        accessQueue().async([read = std::move(read), resume = std::move(resume)] { resume(read()); });
    });
}

// The result owns the event store, so that a requested read is answered even if this object ends.
std::function<CalendarStore::Events()> CalendarStore::reader(
    const QString& calendarIdentifier, Date startDate, Date endDate) const
{
    const auto store = eventStore();
    const auto found = store ? calendarOf(*store, calendarIdentifier) : nullptr;
    if (!found)
        return {};
    return [store, found, startDate, endDate] {
        return store->eventsMatching(store->predicateForEvents(startDate, endDate, {{found}}));
    };
}

std::shared_ptr<EventCalendar> CalendarStore::calendar(const QString& identifier) const
{
    const auto store = eventStore();
    return store ? calendarOf(*store, identifier) : nullptr;
}

std::shared_ptr<Event> CalendarStore::newEvent(const QString& calendarIdentifier) const
{
    const auto store = eventStore();
    const auto found = store ? calendarOf(*store, calendarIdentifier) : nullptr;
    if (!found)
        return nullptr;
    auto event = store->newEvent();
    event->setCalendar(found);
    return event;
}

void CalendarStore::saveEvent(const std::shared_ptr<Event>& event)
{
    submit(&EventStore::saveEvent, event, u"Error saving Event: "_s);
}

void CalendarStore::deleteCalendarEvent(const std::shared_ptr<Event>& event)
{
    submit(&EventStore::removeEvent, event, u"Error deleting Event: "_s);
}

void CalendarStore::submit(Change change, const std::shared_ptr<Event>& event, const QString& messageStem,
    const char* function, int line)
{
    const auto store = eventStore();
    if (!store || !event)
        return;
    accessQueue().async([store, change, event, messageStem, function, line,
                            scheduleCommit = whileAlive(*this, [this] { scheduleCommit(); })] {
        logFailure(((*store).*change)(event, EventSpan::thisEvent, false), messageStem, function, line);
        MainQueue::async(scheduleCommit);
    });
}

void CalendarStore::scheduleCommit()
{
    delayedAction_.run(whileAlive(*this, [this] { saveDelayed(); }));
}

void CalendarStore::saveDelayed()
{
    const char* const function = __func__; // which is another one in a closure
    accessQueue().async([self = holder(), function] {
        if (const auto store = eventStore(self))
            logFailure(store->commit(), u"Error saving: "_s, function, __LINE__);
    });
}

void CalendarStore::deleteCalendar(const QString& identifier)
{
    const auto store = eventStore();
    const auto found = store ? calendarOf(*store, identifier) : nullptr;
    if (!found)
        return;
    const char* const function = __func__;
    accessQueue().async([store, found, function] {
        logFailure(store->removeCalendar(found, true), u"Error deleting Calendar: "_s, function, __LINE__);
    });
}

std::vector<CalendarStore::CalendarSource> CalendarStore::calendarSources() const
{
    std::vector<CalendarSource> list;
    const auto store = eventStore();
    if (!store)
        return list;
    for (const EventSource& source : store->sources()) {
        list.push_back({CalendarSource::Source{source}});
        for (const auto& calendar : store->calendars(source, EntityType::event))
            list.push_back({CalendarSource::Calendar{calendar}});
    }
    return list;
}

std::shared_ptr<EventCalendar> CalendarStore::createCalendar(
    const EventSource& source, const QString& title, const QColor& color)
{
    const auto store = eventStore();
    if (!store)
        return nullptr;
    auto calendar = store->newCalendar(EntityType::event);
    calendar->setTitle(title);
    calendar->setColor(color);
    calendar->setSource(source);
    const auto result = store->saveCalendar(calendar, true);
    logFailure(result, u"Error saving Calendar: "_s, __func__, __LINE__);
    return result ? nullptr : calendar;
}

} // namespace quor::toolkit
