// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Stores/EventStore.h"

#include "ToolKit/Calendar/Stores/EventStoreState.h"

#include <QTimeZone>
#include <QUuid>

#include <algorithm>
#include <utility>

namespace quor::toolkit {

namespace {

std::optional<std::vector<QString>> identifiers(
    const std::optional<std::vector<std::shared_ptr<EventCalendar>>>& calendars)
{
    if (!calendars)
        return std::nullopt;
    std::vector<QString> identifiers;
    for (const auto& calendar : *calendars) {
        if (calendar)
            identifiers.push_back(calendar->calendarIdentifier());
    }
    return identifiers;
}

bool isDue(const ReminderFields& fields, const ReminderPredicate& predicate)
{
    if (fields.isCompleted)
        return false;
    if (!fields.dueDate)
        return !predicate.startDate && !predicate.endDate;
    return (!predicate.startDate || *fields.dueDate >= *predicate.startDate)
        && (!predicate.endDate || *fields.dueDate < *predicate.endDate);
}

QString newIdentifier()
{
    return QUuid::createUuid().toString(QUuid::WithoutBraces);
}

} // namespace

EventStore::EventStore(EventStoreOptions options)
    : state_(std::make_shared<State>(std::move(options)))
{
}

EventStore::~EventStore() = default;

void EventStore::requestFullAccessToEvents(AccessCompletion completion)
{
    state_->queue.async([state = state_, completion = std::move(completion)] {
        if (completion)
            completion(state->hasAccess(EntityType::event), std::nullopt);
    });
}

void EventStore::requestFullAccessToReminders(AccessCompletion completion)
{
    state_->queue.async([state = state_, completion = std::move(completion)] {
        if (completion)
            completion(state->hasAccess(EntityType::reminder), std::nullopt);
    });
}

std::vector<EventSource> EventStore::sources()
{
    if (!state_->hasAccess(EntityType::event) && !state_->hasAccess(EntityType::reminder))
        return {};
    const std::scoped_lock lock(state_->mutex);
    state_->refresh();
    return state_->sources;
}

std::vector<std::shared_ptr<EventCalendar>> EventStore::calendars(EntityType type)
{
    std::vector<std::shared_ptr<EventCalendar>> found;
    for (const EventSource& source : sources()) {
        for (auto& calendar : calendars(source, type))
            found.push_back(std::move(calendar));
    }
    return found;
}

std::vector<std::shared_ptr<EventCalendar>> EventStore::calendars(const EventSource& source, EntityType type)
{
    std::vector<std::shared_ptr<EventCalendar>> found;
    if (!state_->hasAccess(type))
        return found;
    const std::scoped_lock lock(state_->mutex);
    state_->refresh();
    const QByteArray name = source.sourceIdentifier.toUtf8();
    for (const auto& [path, folder] : state_->folders(std::nullopt)) {
        auto calendar = path.source == name ? folder->calendar(state_->source(name)) : nullptr;
        if (calendar && calendar->allows(type))
            found.push_back(std::move(calendar));
    }
    std::ranges::stable_sort(found, {}, [](const auto& each) { return each->title(); });
    return found;
}

std::shared_ptr<EventCalendar> EventStore::newCalendar(EntityType type)
{
    auto calendar = std::make_shared<EventCalendar>();
    calendar->fields_.holdsEvents = type == EntityType::event;
    calendar->fields_.holdsReminders = type == EntityType::reminder;
    return calendar;
}

std::shared_ptr<Event> EventStore::newEvent()
{
    auto event = std::make_shared<Event>();
    event->place_.uid = newIdentifier();
    const QString zone = QString::fromUtf8(QTimeZone::systemTimeZoneId());
    event->fields_.timeZone = zone == u"Etc/UTC" ? QStringLiteral("UTC") : zone;
    return event;
}

std::shared_ptr<Reminder> EventStore::newReminder()
{
    auto reminder = std::make_shared<Reminder>();
    reminder->place_.uid = newIdentifier();
    return reminder;
}

EventStore::Result EventStore::commit()
{
    if (!state_->hasAccess(EntityType::event) && !state_->hasAccess(EntityType::reminder))
        return EventStoreError(
            EventStoreError::Kind::accessDenied, QStringLiteral("the user refused access"));
    const std::scoped_lock lock(state_->mutex);
    state_->refresh();
    return state_->commit();
}

void EventStore::reset()
{
    const std::scoped_lock lock(state_->mutex);
    state_->calendarChanges.clear();
    state_->calendarRemovals.clear();
    for (const auto& [path, folder] : state_->folders(std::nullopt))
        folder->reset();
}

void EventStore::refreshSourcesIfNecessary()
{
    const std::scoped_lock lock(state_->mutex);
    state_->relist();
    state_->refresh();
}

EventPredicate EventStore::predicateForEvents(
    Date start, Date end, const std::optional<std::vector<std::shared_ptr<EventCalendar>>>& calendars) const
{
    return {start, end, identifiers(calendars)};
}

ReminderPredicate EventStore::predicateForIncompleteReminders(std::optional<Date> start,
    std::optional<Date> end,
    const std::optional<std::vector<std::shared_ptr<EventCalendar>>>& calendars) const
{
    return {start, end, identifiers(calendars)};
}

std::vector<std::shared_ptr<Event>> EventStore::eventsMatching(const EventPredicate& predicate)
{
    std::vector<std::shared_ptr<Event>> events;
    if (!state_->hasAccess(EntityType::event))
        return events;
    const std::scoped_lock lock(state_->mutex);
    state_->refresh();
    for (const auto& [path, folder] : state_->folders(predicate.calendarIdentifiers)) {
        const auto calendar = folder->calendar(state_->source(path.source));
        const QString identifier = calendar->calendarIdentifier();
        const auto add = [&](const QByteArray& file, const EventRecord& record,
                             std::optional<Date> occurrence, const EventFields& fields) {
            auto event = std::make_shared<Event>();
            event->fields_ = fields;
            event->saved_ = fields;
            event->place_ = {record.uid, identifier, file, occurrence.has_value(), occurrence};
            event->calendar_ = calendar;
            events.push_back(std::move(event));
        };
        folder->visitEvents(predicate.startDate, predicate.endDate, add);
    }
    std::ranges::stable_sort(events, {}, [](const auto& each) { return each->fields_.startDate; });
    return events;
}

void EventStore::fetchReminders(ReminderPredicate predicate, ReminderCompletion completion)
{
    const auto fetch = [](State& state, const ReminderPredicate& wanted) {
        std::vector<std::shared_ptr<Reminder>> reminders;
        const std::scoped_lock lock(state.mutex);
        state.refresh();
        for (const auto& [path, folder] : state.folders(wanted.calendarIdentifiers)) {
            const auto calendar = folder->calendar(state.source(path.source));
            folder->visitReminders([&](const QByteArray& file, const ReminderRecord& record) {
                if (!isDue(record.fields, wanted))
                    return;
                auto reminder = std::make_shared<Reminder>();
                reminder->fields_ = record.fields;
                reminder->saved_ = record.fields;
                reminder->place_ = {record.uid, calendar->calendarIdentifier(), file, false, std::nullopt};
                reminder->calendar_ = calendar;
                reminders.push_back(std::move(reminder));
            });
        }
        return reminders;
    };
    state_->queue.async(
        [state = state_, fetch, predicate = std::move(predicate), completion = std::move(completion)] {
            if (!completion)
                return;
            if (state->hasAccess(EntityType::reminder))
                completion(fetch(*state, predicate));
            else
                completion(std::nullopt);
        });
}

} // namespace quor::toolkit
