// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Items/ItemEdits.h"
#include "ToolKit/Calendar/Items/RecurrenceExpansion.h"
#include "ToolKit/Calendar/Stores/EventStore.h"
#include "ToolKit/Calendar/Stores/EventStoreState.h"

#include <QUuid>

#include <algorithm>
#include <tuple>
#include <utility>

namespace quor::toolkit {

namespace {

using Result = EventStore::Result;
using Kind = EventStoreError::Kind;

EventStoreError noAccess()
{
    return {Kind::accessDenied, QStringLiteral("the user refused access")};
}

EventStoreError missing(const char* what)
{
    return {Kind::notFound, QString::fromLatin1(what)};
}

/// Puts all components of a file into another that lacks them.
Result insertAll(ItemFile& file, const QByteArray& bytes)
{
    if (!file.isEmpty())
        return EventStoreError(Kind::conflict, QStringLiteral("changed by another program"));
    auto parsed = ItemFile::parse(bytes);
    if (!parsed)
        return EventStoreError(Kind::unreadable, QStringLiteral("cannot be read as a calendar"));
    file = *std::move(parsed);
    return std::nullopt;
}

/// Takes out what was put into another file, as long as it is the same.
Result takeOut(ItemFile& file, const QString& uid, const QByteArray& bytes)
{
    if (file.extract(uid).bytes() != bytes)
        return EventStoreError(Kind::conflict, QStringLiteral("changed by another program"));
    for (const auto kind : {ICAL_VEVENT_COMPONENT, ICAL_VTODO_COMPONENT}) {
        for (icalcomponent* each : file.components(kind, uid))
            file.remove(each);
    }
    return std::nullopt;
}

/// The record of that one of a series, where the file has it beside no series of that identifier; else the
/// series, or the event that happens once.
const EventRecord* recordOf(
    CalendarFolder& folder, const QByteArray& file, const QString& uid, std::optional<Date> occurrence)
{
    const FileRecords* const records = folder.records(file);
    if (!records)
        return nullptr;
    const EventRecord* found = nullptr;
    for (const EventRecord& each : records->events) {
        if (each.uid != uid)
            continue;
        if (each.occurrence && each.occurrence == occurrence)
            return &each;
        if (!found && (!each.occurrence || !occurrence))
            found = &each;
    }
    return found;
}

/// What an event says as it will be read again.
std::optional<EventFields> readBack(const EventRecord& record, std::optional<Date> occurrence)
{
    if (!record.recurrence || !occurrence)
        return record.fields;
    if (const auto own = record.recurrence->overrides.find(*occurrence);
        own != record.recurrence->overrides.end())
        return own->second;
    std::optional<EventFields> found;
    expand(record, *occurrence, *occurrence + std::chrono::seconds(1),
        [&](Date start, const EventFields& fields) {
            if (start == *occurrence)
                found = fields;
        });
    return found;
}

/// One change of an event on its way into the staged files.
class EventSaving final {
public:
    EventSaving(CalendarFolder& target, EventChange change, ItemPlace place)
        : target_(target)
        , change_(std::move(change))
        , place_(std::move(place))
    {
    }

    [[nodiscard]] Result add()
    {
        place_.file = target_.newFile(change_.uid);
        return target_.stage(
            place_.file, [change = change_](ItemFile& file) { return saveEvent(file, change); });
    }

    [[nodiscard]] Result save(EventSpan span)
    {
        const EventRecord* const record = recordOf(target_, place_.file, change_.uid, change_.occurrence);
        if (!record)
            return missing("the event is not there any more");
        if (span == EventSpan::thisEvent || !record->recurrence || !change_.occurrence)
            return target_.stage(
                place_.file, [change = change_](ItemFile& file) { return saveEvent(file, change); });
        if (*change_.occurrence <= record->fields.startDate) {
            change_.occurrence.reset();
            return target_.stage(
                place_.file, [change = change_](ItemFile& file) { return saveSeries(file, change); });
        }
        return split();
    }

    /// From another calendar, with its whole series.
    [[nodiscard]] Result move(CalendarFolder& from)
    {
        const auto content = from.content(place_.file);
        if (!content)
            return missing("the event is not there any more");
        const QByteArray bytes = content->extract(change_.uid).bytes();
        const QByteArray old = std::exchange(place_.file, target_.newFile(change_.uid));
        auto failure = target_.stage(place_.file, [bytes, change = change_](ItemFile& file) {
            auto inserted = insertAll(file, bytes);
            return inserted ? inserted : saveEvent(file, change);
        });
        if (failure)
            return failure;
        failure = from.stage(
            old, [bytes, uid = change_.uid](ItemFile& file) { return takeOut(file, uid, bytes); },
            target_.arrival(place_.file));
        if (failure)
            target_.unstage(place_.file);
        return failure;
    }

    [[nodiscard]] const ItemPlace& place() const { return place_; }
    [[nodiscard]] const QString& uid() const { return change_.uid; }

private:
    Result split()
    {
        const auto content = target_.content(place_.file);
        if (!content)
            return missing("the event is not there any more");
        const QByteArray bytes = content->extract(change_.uid).bytes();
        const QString uid = QUuid::createUuid().toString(QUuid::WithoutBraces);
        const QByteArray file = target_.newFile(uid);
        auto failure = target_.stage(file, [bytes, uid, change = change_](ItemFile& each) {
            auto inserted = insertAll(each, bytes);
            return inserted ? inserted : beginSeries(each, change, uid);
        });
        if (failure)
            return failure;
        failure = target_.stage(
            place_.file, [change = change_](ItemFile& each) { return endSeries(each, change); },
            target_.arrival(file));
        if (failure) {
            target_.unstage(file);
            return failure;
        }
        place_.file = file;
        change_.uid = uid;
        place_.occurrence = change_.fields.startDate;
        return std::nullopt;
    }

    CalendarFolder& target_;
    EventChange change_;
    ItemPlace place_;
};

} // namespace

EventStore::Result EventStore::saveEvent(const std::shared_ptr<Event>& event, EventSpan span, bool commit)
{
    if (!state_->hasAccess(EntityType::event))
        return noAccess();
    const std::scoped_lock lock(state_->mutex);
    state_->refresh();
    if (!event || !event->calendar())
        return EventStoreError(Kind::invalid, QStringLiteral("an event without a calendar"));
    const auto calendar = event->calendar();
    const auto [fields, saved, place]
        = event->locked([&] { return std::tuple(event->fields_, event->saved_, event->place_); });
    CalendarFolder* const target = state_->folder(calendar->calendarIdentifier());
    if (auto defect = defectOf(fields, saved))
        return defect;
    if (!target)
        return missing("the calendar is not there any more");
    const bool isNew = place.calendarIdentifier.isEmpty();
    CalendarFolder* const from = isNew ? target : state_->folder(place.calendarIdentifier);
    ItemPlace known = place;
    known.file = from && !isNew ? from->fileOf(place.uid, place.file) : QByteArray();
    if (!isNew && known.file.isEmpty())
        return missing("the event is not there any more");
    EventSaving saving(*target, {place.uid, place.occurrence, saved, fields, isNew}, known);
    Result failure = isNew ? saving.add() : from == target ? saving.save(span) : saving.move(*from);
    if (failure)
        return failure;
    ItemPlace now = saving.place();
    now.uid = saving.uid();
    now.calendarIdentifier = calendar->calendarIdentifier();
    if (const EventRecord* const record = recordOf(*target, now.file, now.uid, now.occurrence)) {
        now.isRecurring = record->recurrence != nullptr || record->occurrence;
        if (!now.isRecurring)
            now.occurrence.reset();
        else if (!now.occurrence || (span == EventSpan::futureEvents && record->recurrence))
            now.occurrence = record->occurrence.value_or(record->fields.startDate);
        const auto again = readBack(*record, now.occurrence);
        event->locked([&, &before = fields] {
            event->place_ = now;
            event->saved_ = again.value_or(before);
            if (event->fields_ == before)
                event->fields_ = event->saved_;
        });
    }
    return commit ? state_->commit() : std::nullopt;
}

EventStore::Result EventStore::removeEvent(const std::shared_ptr<Event>& event, EventSpan span, bool commit)
{
    if (!state_->hasAccess(EntityType::event))
        return noAccess();
    const std::scoped_lock lock(state_->mutex);
    state_->refresh();
    if (!event)
        return EventStoreError(Kind::invalid, QStringLiteral("no event"));
    const auto [saved, place] = event->locked([&] { return std::tuple(event->saved_, event->place_); });
    CalendarFolder* const folder = state_->folder(place.calendarIdentifier);
    const QByteArray file = folder ? folder->fileOf(place.uid, place.file) : QByteArray();
    if (file.isEmpty())
        return missing("the event is not there any more");
    const EventChange change{place.uid, place.occurrence, saved, saved, false};
    const bool endsSeries = span == EventSpan::futureEvents && place.occurrence;
    auto failure = folder->stage(file, [change, endsSeries](ItemFile& each) {
        return endsSeries ? endSeries(each, change) : toolkit::removeEvent(each, change);
    });
    if (failure)
        return failure;
    return commit ? state_->commit() : std::nullopt;
}

EventStore::Result EventStore::saveReminder(const std::shared_ptr<Reminder>& reminder, bool commit)
{
    if (!state_->hasAccess(EntityType::reminder))
        return noAccess();
    const std::scoped_lock lock(state_->mutex);
    state_->refresh();
    if (!reminder || !reminder->calendar())
        return EventStoreError(Kind::invalid, QStringLiteral("a reminder without a calendar"));
    const auto calendar = reminder->calendar();
    auto [fields, saved, place]
        = reminder->locked([&] { return std::tuple(reminder->fields_, reminder->saved_, reminder->place_); });
    CalendarFolder* const target = state_->folder(calendar->calendarIdentifier());
    if (auto defect = defectOf(fields))
        return defect;
    if (!target)
        return missing("the calendar is not there any more");
    ReminderChange change{place.uid, saved, fields, place.calendarIdentifier.isEmpty()};
    CalendarFolder* const from = change.isNew ? target : state_->folder(place.calendarIdentifier);
    const QByteArray old = from && !change.isNew ? from->fileOf(place.uid, place.file) : QByteArray();
    if (!change.isNew && old.isEmpty())
        return missing("the reminder is not there any more");
    place.file = change.isNew || from != target ? target->newFile(place.uid) : old;
    QByteArray moved;
    if (from != target) {
        const auto content = from->content(old);
        moved = content ? content->extract(place.uid).bytes() : QByteArray();
    }
    auto failure = target->stage(place.file, [moved, change](ItemFile& file) {
        auto inserted = moved.isEmpty() ? Result() : insertAll(file, moved);
        return inserted ? inserted : toolkit::saveReminder(file, change);
    });
    if (!failure && from != target) {
        failure = from->stage(
            old, [moved, uid = change.uid](ItemFile& file) { return takeOut(file, uid, moved); },
            target->arrival(place.file));
        if (failure)
            target->unstage(place.file);
    }
    if (failure)
        return failure;
    place.calendarIdentifier = calendar->calendarIdentifier();
    const FileRecords* const records = target->records(place.file);
    const auto again = std::ranges::find(records->reminders, place.uid, &ReminderRecord::uid);
    reminder->locked([&, &before = fields, &now = place] {
        reminder->place_ = now;
        reminder->saved_ = again == records->reminders.end() ? before : again->fields;
        if (reminder->fields_ == before)
            reminder->fields_ = reminder->saved_;
    });
    return commit ? state_->commit() : std::nullopt;
}

EventStore::Result EventStore::removeReminder(const std::shared_ptr<Reminder>& reminder, bool commit)
{
    if (!state_->hasAccess(EntityType::reminder))
        return noAccess();
    const std::scoped_lock lock(state_->mutex);
    state_->refresh();
    if (!reminder)
        return EventStoreError(Kind::invalid, QStringLiteral("no reminder"));
    const auto [saved, place]
        = reminder->locked([&] { return std::tuple(reminder->saved_, reminder->place_); });
    CalendarFolder* const folder = state_->folder(place.calendarIdentifier);
    const QByteArray file = folder ? folder->fileOf(place.uid, place.file) : QByteArray();
    if (file.isEmpty())
        return missing("the reminder is not there any more");
    const ReminderChange change{place.uid, saved, saved, false};
    auto failure
        = folder->stage(file, [change](ItemFile& each) { return toolkit::removeReminder(each, change); });
    if (failure)
        return failure;
    return commit ? state_->commit() : std::nullopt;
}

} // namespace quor::toolkit
