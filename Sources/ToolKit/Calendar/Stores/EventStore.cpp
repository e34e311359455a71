// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Stores/EventStore.h"

#include "Platform/Preferences/UserDefaults.h"
#include "ToolKit/Calendar/Items/ItemErrors.h"
#include "ToolKit/Calendar/Stores/EventPolicy.h"
#include "ToolKit/Calendar/Stores/EventStoreState.h"
#include "ToolKit/Calendar/Stores/ItemSaving.h"
#include "ToolKit/Calendar/Stores/ReminderPolicy.h"

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

bool isFolderName(const QByteArray& name)
{
    constexpr qsizetype longest = 255; // bytes
    return !name.isEmpty() && name.size() <= longest && !name.startsWith('.') && !name.contains('/')
        && !name.contains('\0');
}

} // namespace

EventStore::EventStore(EventStoreOptions options)
    : state_(std::make_shared<State>(std::move(options)))
{
}

EventStore::~EventStore() = default;

AuthorizationStatus EventStore::authorizationStatus(EntityType type, const EventStoreOptions& options)
{
    if (options.authorization)
        return options.authorization(type);
    const QString key = type == EntityType::event ? QStringLiteral("calendarAccessDenied")
                                                  : QStringLiteral("reminderAccessDenied");
    return platform::UserDefaults::standard().boolForKey(key) ? AuthorizationStatus::denied
                                                              : AuthorizationStatus::fullAccess;
}

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
    if (!state_->hasAnyAccess())
        return {};
    const std::scoped_lock lock(state_->mutex);
    state_->calendars.refresh();
    return state_->calendars.sources();
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
    state_->calendars.refresh();
    const QByteArray name = source.sourceIdentifier.toUtf8();
    for (CalendarFolder* const folder : state_->calendars.folders()) {
        if (folder->path().source != name)
            continue;
        if (auto calendar = folder->calendar(state_->calendars.source(name)); calendar->allows(type))
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
    ItemState<EventFields> state;
    state.place.uid = newIdentifier();
    state.fields.timeZone = ItemZone::ofUser().name();
    return std::make_shared<Event>(std::move(state));
}

std::shared_ptr<Reminder> EventStore::newReminder()
{
    ItemState<ReminderFields> state;
    state.place.uid = newIdentifier();
    return std::make_shared<Reminder>(std::move(state));
}

EventStore::Result EventStore::saveCalendar(const std::shared_ptr<EventCalendar>& calendar, bool commit)
{
    return state_->run(state_->hasAnyAccess(), false, [&]() -> Result {
        CalendarTree& calendars = state_->calendars;
        const auto source = calendar ? calendar->source() : std::nullopt;
        const QByteArray sourceName = source ? source->sourceIdentifier.toUtf8() : QByteArray();
        if (!isFolderName(sourceName) || calendars.root().isEmpty())
            return invalid(QStringLiteral("the calendar has no source"));
        const auto [fields, saved] = calendar->fieldsAndSaved();
        auto& stagedChanges = state_->propertiesChanges;
        CalendarPropertiesChange change;
        change.isNew = fields.identifier.isEmpty();
        if (change.isNew)
            change.type = fields.holdsEvents ? EntityType::event : EntityType::reminder;
        change.path = change.isNew
            ? CalendarPath{sourceName, QUuid::createUuid().toByteArray(QUuid::WithoutBraces)}
            : CalendarPath::fromIdentifier(fields.identifier);
        const auto earlier = std::ranges::find(stagedChanges, change.path, &CalendarPropertiesChange::path);
        if (earlier != stagedChanges.end())
            change = *earlier;
        else if (!change.isNew && !calendars.folder(change.path))
            return notFound(QStringLiteral("the calendar ") + fields.identifier);
        if (fields.title != saved.title)
            change.title = fields.title;
        if (fields.color != saved.color)
            change.color = fields.color;
        if (auto obstacle = change.obstacle(calendars.root()))
            return obstacle;
        if (commit) {
            if (auto failure = change.write(calendars.root()))
                return failure;
            calendars.refresh(CalendarTree::Listing::always); // the next save into it finds the calendar
            if (CalendarFolder* const folder = calendars.folder(change.path))
                folder->markAllChanged();
        }
        if (earlier != stagedChanges.end())
            stagedChanges.erase(earlier); // `change` contains it
        calendar->setSaved(fields, change.path.identifier());
        if (commit)
            state_->commitOthers();
        else
            stagedChanges.push_back(change);
        return std::nullopt;
    });
}

EventStore::Result EventStore::removeCalendar(const std::shared_ptr<EventCalendar>& calendar, bool commit)
{
    return state_->run(state_->hasAnyAccess(), false, [&]() -> Result {
        const QString identifier = calendar ? calendar->calendarIdentifier() : QString();
        const auto path = CalendarPath::fromIdentifier(identifier);
        const CalendarFolder* const folder = state_->calendars.folder(path);
        if (!folder)
            return notFound(QStringLiteral("the calendar ") + identifier);
        if (auto obstacle = folder->removalObstacle())
            return obstacle;
        if (commit)
            return state_->commitRemoval(path);
        if (std::ranges::find(state_->removals, path) == state_->removals.end())
            state_->removals.push_back(path);
        return std::nullopt;
    });
}

EventStore::Result EventStore::saveEvent(const std::shared_ptr<Event>& event, EventSpan span, bool commit)
{
    return state_->run(state_->hasAccess(EntityType::event), commit,
        [&] { return ItemSaving(state_->calendars, EventPolicy(span)).save(event); });
}

EventStore::Result EventStore::removeEvent(const std::shared_ptr<Event>& event, EventSpan span, bool commit)
{
    return state_->run(state_->hasAccess(EntityType::event), commit,
        [&] { return ItemSaving(state_->calendars, EventPolicy(span)).remove(event); });
}

EventStore::Result EventStore::saveReminder(const std::shared_ptr<Reminder>& reminder, bool commit)
{
    return state_->run(state_->hasAccess(EntityType::reminder), commit,
        [&] { return ItemSaving(state_->calendars, ReminderPolicy()).save(reminder); });
}

EventStore::Result EventStore::removeReminder(const std::shared_ptr<Reminder>& reminder, bool commit)
{
    return state_->run(state_->hasAccess(EntityType::reminder), commit,
        [&] { return ItemSaving(state_->calendars, ReminderPolicy()).remove(reminder); });
}

EventStore::Result EventStore::commit()
{
    return state_->run(state_->hasAnyAccess(), true, [] { return Result(); });
}

void EventStore::reset()
{
    const std::scoped_lock lock(state_->mutex);
    state_->reset();
}

void EventStore::refreshSourcesIfNecessary()
{
    const std::scoped_lock lock(state_->mutex);
    state_->calendars.refresh(CalendarTree::Listing::always);
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
    state_->calendars.refresh();
    for (CalendarFolder* const folder : state_->calendars.folders(predicate.calendarIdentifiers)) {
        const auto calendar = folder->calendar(state_->calendars.source(folder->path().source));
        const QString identifier = folder->identifier();
        const auto add = [&](const QByteArray& file, const EventRecord& record,
                             std::optional<Date> occurrence, const EventFields& fields) {
            events.push_back(std::make_shared<Event>(ItemState<EventFields>{
                fields, fields, {record.uid, identifier, file, occurrence}, calendar}));
        };
        folder->visitEvents(predicate.startDate, predicate.endDate, add);
    }
    std::ranges::stable_sort(events, {}, [](const auto& each) { return each->state_.fields.startDate; });
    return events;
}

void EventStore::fetchReminders(ReminderPredicate predicate, ReminderCompletion completion)
{
    const auto fetch = [](State& state, const ReminderPredicate& wanted) {
        std::vector<std::shared_ptr<Reminder>> reminders;
        const std::scoped_lock lock(state.mutex);
        state.calendars.refresh();
        for (CalendarFolder* const folder : state.calendars.folders(wanted.calendarIdentifiers)) {
            const auto calendar = folder->calendar(state.calendars.source(folder->path().source));
            const QString identifier = folder->identifier();
            folder->visitReminders([&](const QByteArray& file, const ReminderRecord& record) {
                if (isDue(record.fields, wanted))
                    reminders.push_back(std::make_shared<Reminder>(ItemState<ReminderFields>{record.fields,
                        record.fields, {record.uid, identifier, file, std::nullopt}, calendar}));
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
