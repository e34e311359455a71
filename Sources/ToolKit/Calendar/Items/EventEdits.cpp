// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Items/EventEdits.h"

#include "Platform/Calendar/TimeZones.h"
#include "ToolKit/Calendar/Items/Components.h"
#include "ToolKit/Calendar/Items/ItemErrors.h"
#include "ToolKit/Calendar/Items/ItemReader.h"
#include "ToolKit/Calendar/Items/ItemRule.h"
#include "ToolKit/Calendar/Items/ItemWriter.h"
#include "ToolKit/Calendar/Items/RecurrenceExpansion.h"

#include <algorithm>
#include <tuple>

namespace quor::toolkit {

namespace {

auto times(const EventFields& fields)
{
    return std::tie(fields.startDate, fields.endDate, fields.isAllDay, fields.timeZone);
}

bool clashes(const EventFields& current, const EventChange& change)
{
    const EventFields& base = change.base;
    const EventFields& wanted = change.fields;
    return clash(current.title, base.title, wanted.title) || clash(current.notes, base.notes, wanted.notes)
        || clash(current.location, base.location, wanted.location) || clash(current.url, base.url, wanted.url)
        || clash(times(current), times(base), times(wanted))
        || clash(current.recurrenceRule, base.recurrenceRule, wanted.recurrenceRule);
}

/// Writes the fields that differ from the base.
void writeFields(icalcomponent* event, const EventChange& change)
{
    const EventFields& base = change.base;
    const EventFields& wanted = change.fields;
    const auto text = [&](icalproperty_kind kind, const QString& before, const QString& after) {
        if (before != after)
            writeText(event, kind, after);
    };
    text(ICAL_SUMMARY_PROPERTY, base.title, wanted.title);
    text(ICAL_DESCRIPTION_PROPERTY, base.notes, wanted.notes);
    text(ICAL_LOCATION_PROPERTY, base.location, wanted.location);
    text(ICAL_URL_PROPERTY, base.url, wanted.url);
    if (times(base) != times(wanted) || change.isNew)
        writeTimes(event, wanted);
    if (base.recurrenceRule != wanted.recurrenceRule) {
        removeAll(event, ICAL_RRULE_PROPERTY);
        if (!wanted.recurrenceRule.isEmpty()) {
            const ItemRule rule(wanted.recurrenceRule.toUtf8());
            icalcomponent_add_property(event, icalproperty_new_rrule(rule.value));
        }
    }
    touch(event);
}

icalcomponent* masterOf(const ItemFile& file, const QString& uid)
{
    return file.master(ICAL_VEVENT_COMPONENT, uid);
}

icalcomponent* overrideOf(const ItemFile& file, const QString& uid, Date occurrence)
{
    ZoneCache zones;
    for (icalcomponent* each : file.components(ICAL_VEVENT_COMPONENT, uid)) {
        if (replacedStart(each, zones) == occurrence)
            return each;
    }
    return nullptr;
}

/// Returns `nullopt` if the file does not have that occurrence.
std::optional<EventFields> occurrenceFields(const ItemFile& file, const QString& uid, Date occurrence)
{
    std::optional<EventFields> found;
    const FileRecords records = file.records();
    for (const EventRecord& record : records.events) {
        if (record.uid != uid)
            continue;
        if (record.occurrence == occurrence)
            return record.fields;
        if (const auto fields = record.recurrence ? fieldsAt(record, occurrence) : std::nullopt)
            found = fields;
    }
    return found;
}

bool hasOccurrenceBefore(const ItemFile& file, const QString& uid, Date end)
{
    const FileRecords records = file.records();
    return std::ranges::any_of(records.events, [&](const EventRecord& each) {
        return each.uid == uid && each.recurrence && firstOccurrence(each, end);
    });
}

/// Returns the file's values of the event or occurrence that the change is about.
std::optional<EventFields> currentFields(const ItemFile& file, const EventChange& change)
{
    if (change.occurrence)
        return occurrenceFields(file, change.uid, *change.occurrence);
    icalcomponent* const master = masterOf(file, change.uid);
    return master ? readEvent(master) : std::nullopt;
}

icalcomponent* makeOverride(icalcomponent* master, Date occurrence, const EventFields& current)
{
    icalcomponent* const event = icalcomponent_new_clone(master);
    icalcomponent_add_component(icalcomponent_get_parent(master), event);
    for (const auto kind :
        {ICAL_RRULE_PROPERTY, ICAL_RDATE_PROPERTY, ICAL_EXDATE_PROPERTY, ICAL_EXRULE_PROPERTY})
        removeAll(event, kind);
    writeMoment(
        event, ICAL_RECURRENCEID_PROPERTY, occurrence, current.isAllDay, zoneFor(event, current.timeZone));
    writeTimes(event, current);
    return event;
}

void removeWhole(ItemFile& file, const QString& uid)
{
    for (icalcomponent* each : file.components(ICAL_VEVENT_COMPONENT, uid))
        file.remove(each);
}

/// Moves the dates of a series by the same distance as its start, in local time: a series moved from 9 to 10
/// o'clock stays at 10 o'clock in summer and in winter.
class SeriesShift final {
public:
    SeriesShift(const EventFields& from, const EventFields& to, icalcomponent* event)
        : from_(from.isAllDay ? ItemZone() : zoneFor(event, from.timeZone))
        , to_(to.isAllDay ? ItemZone() : zoneFor(event, to.timeZone))
        , distance_(localTime(to_, to.startDate) - localTime(from_, from.startDate))
        , isDate_(to.isAllDay)
    {
    }

    void apply(icalcomponent* event, icalproperty_kind kind) const
    {
        std::vector<Date> moved;
        ZoneCache zones;
        for (icalproperty* each : propertiesIn(event, kind)) {
            const auto moment = readMoment(each, zones);
            if (!moment)
                continue;
            const Date shifted
                = to_.moment(ItemZone::utc().local(localTime(from_, *moment) + distance_, isDate_));
            if (isWritable(shifted))
                moved.push_back(shifted);
        }
        removeAll(event, kind);
        for (const Date moment : moved)
            addMoment(event, kind, moment, isDate_, to_);
    }

private:
    static Date localTime(const ItemZone& zone, Date moment)
    {
        return ItemZone::utc().moment(zone.local(moment, false));
    }

    ItemZone from_;
    ItemZone to_;
    std::chrono::duration<double> distance_;
    bool isDate_;
};

/// Makes the rules of a series end before that moment.
void endRules(icalcomponent* master, const EventFields& fields, Date end)
{
    const Date last = end - std::chrono::seconds(1);
    const ItemZone zone = fields.isAllDay || fields.timeZone.isEmpty() ? ItemZone() : ItemZone::utc();
    for (icalproperty* each : propertiesIn(master, ICAL_RRULE_PROPERTY)) {
        icalrecurrencetype rule = icalproperty_get_rrule(each);
        rule.count = 0;
        rule.until = zone.local(last, fields.isAllDay);
        icalproperty_set_rrule(each, rule);
    }
}

/// Removes the dates for which `keeps` returns false.
template <class Keeps>
void keepMoments(icalcomponent* event, icalproperty_kind kind, Keeps keeps)
{
    ZoneCache zones;
    for (icalproperty* each : propertiesIn(event, kind)) {
        const auto moment = readMoment(each, zones);
        // libical searches the list for a property to remove: what stays goes to its end.
        icalcomponent_remove_property(event, each);
        if (moment && !keeps(*moment))
            icalproperty_free(each);
        else
            icalcomponent_add_property(event, each);
    }
}

template <class Drops>
void dropOverrides(ItemFile& file, const QString& uid, Drops drops)
{
    ZoneCache zones;
    for (icalcomponent* each : file.components(ICAL_VEVENT_COMPONENT, uid)) {
        const auto replaced = replacedStart(each, zones);
        if (replaced && drops(*replaced))
            file.remove(each);
    }
}

} // namespace

EventStoreResult defectOf(const EventFields& fields, const EventFields& base)
{
    if (!isWritable(fields.startDate) || !isWritable(fields.endDate))
        return invalid(QStringLiteral("a date is out of range"));
    if (fields.endDate < fields.startDate)
        return invalid(QStringLiteral("the end is before the start"));
    const bool isKnownZone = fields.timeZone.isEmpty() || fields.timeZone == base.timeZone
        || platform::namedTimeZone(fields.timeZone.toUtf8());
    if (!isKnownZone)
        return invalid(QStringLiteral("the time zone is unknown"));
    if (!fields.recurrenceRule.isEmpty() && fields.recurrenceRule != base.recurrenceRule
        && !ItemRule(fields.recurrenceRule.toUtf8()).isValid())
        return invalid(QStringLiteral("the recurrence rule is malformed"));
    return std::nullopt;
}

EventStoreResult saveItem(ItemFile& file, const EventChange& change)
{
    if (change.isNew) {
        if (!file.components(ICAL_VEVENT_COMPONENT, change.uid).empty())
            return conflict(change.uid);
        writeFields(file.add(ICAL_VEVENT_COMPONENT, change.uid), change);
        return std::nullopt;
    }
    const auto current = currentFields(file, change);
    if (!current)
        return notFound(change.uid);
    if (clashes(*current, change))
        return conflict(change.uid);
    icalcomponent* event = masterOf(file, change.uid);
    if (change.occurrence) {
        if (change.fields.recurrenceRule != change.base.recurrenceRule)
            return invalid(QStringLiteral("one occurrence of a series cannot have a rule of its own"));
        icalcomponent* const own = overrideOf(file, change.uid, *change.occurrence);
        event = own ? own : makeOverride(event, *change.occurrence, *current);
    }
    writeFields(event, change);
    return std::nullopt;
}

EventStoreResult removeItem(ItemFile& file, const EventChange& change)
{
    const auto current = currentFields(file, change);
    if (!current)
        return notFound(change.uid);
    if (*current != change.base)
        return conflict(change.uid);
    icalcomponent* const master = masterOf(file, change.uid);
    if (!change.occurrence) {
        removeWhole(file, change.uid);
        return std::nullopt;
    }
    if (icalcomponent* const own = overrideOf(file, change.uid, *change.occurrence))
        file.remove(own);
    if (!master)
        return std::nullopt; // the file has only overrides of the series
    const auto first = readEvent(master);
    addMoment(master, ICAL_EXDATE_PROPERTY, *change.occurrence, first && first->isAllDay,
        first ? zoneFor(master, first->timeZone) : ItemZone());
    touch(master);
    return std::nullopt;
}

EventStoreResult endSeries(ItemFile& file, const EventChange& change)
{
    const auto current = currentFields(file, change);
    icalcomponent* const master = masterOf(file, change.uid);
    const auto first = master ? readEvent(master) : std::nullopt;
    if (!current || (master && !first) || !change.occurrence)
        return notFound(change.uid);
    if (*current != change.base)
        return conflict(change.uid);
    const Date end = *change.occurrence;
    if (!master || !recurs(master)) { // the file has only overrides of the series
        dropOverrides(file, change.uid, [&](Date moment) { return moment >= end; });
        return std::nullopt;
    }
    if (!hasOccurrenceBefore(file, change.uid, end)) {
        removeWhole(file, change.uid);
        return std::nullopt;
    }
    endRules(master, *first, end);
    keepMoments(master, ICAL_RDATE_PROPERTY, [&](Date moment) { return moment < end; });
    dropOverrides(file, change.uid, [&](Date moment) { return moment >= end; });
    touch(master);
    return std::nullopt;
}

EventStoreResult beginSeries(ItemFile& file, const EventChange& change, const QString& newUid)
{
    const FileRecords records = file.records();
    const auto series = std::ranges::find_if(
        records.events, [&](const EventRecord& each) { return each.uid == change.uid && each.recurrence; });
    icalcomponent* const master = masterOf(file, change.uid);
    if (series == records.events.end() || !master || !change.occurrence)
        return notFound(change.uid);
    const Date begin = *change.occurrence;
    dropOverrides(file, change.uid, [&](Date moment) { return moment <= begin; });
    keepMoments(master, ICAL_RDATE_PROPERTY, [&](Date moment) { return moment >= begin; });
    icalproperty* const property = icalcomponent_get_first_property(master, ICAL_RRULE_PROPERTY);
    if (property) {
        icalrecurrencetype rule = icalproperty_get_rrule(property);
        if (rule.count > 0)
            rule.count = std::max(1, rule.count - countBefore(*series, begin));
        icalproperty_set_rrule(property, rule);
    }
    EventFields moved = series->fields;
    moved.startDate = begin;
    moved.endDate = begin + (series->fields.endDate - series->fields.startDate);
    writeTimes(master, moved);
    for (icalcomponent* each : file.components(ICAL_VEVENT_COMPONENT, change.uid))
        writeText(each, ICAL_UID_PROPERTY, newUid);
    const auto base = readEvent(master);
    EventFields wanted = change.fields;
    if (change.fields.recurrenceRule == change.base.recurrenceRule && base)
        wanted.recurrenceRule = base->recurrenceRule; // which has the new count
    return base ? saveSeries(file, {newUid, std::nullopt, *base, wanted, false}) : notFound(change.uid);
}

EventStoreResult saveSeries(ItemFile& file, const EventChange& change)
{
    icalcomponent* const master = masterOf(file, change.uid);
    const auto current = master ? readEvent(master) : std::nullopt;
    if (!current)
        return notFound(change.uid);
    if (clashes(*current, change))
        return conflict(change.uid);
    if (times(change.base) != times(change.fields)) {
        const SeriesShift shift(change.base, change.fields, master);
        shift.apply(master, ICAL_EXDATE_PROPERTY);
        shift.apply(master, ICAL_RDATE_PROPERTY);
        for (icalcomponent* each : file.components(ICAL_VEVENT_COMPONENT, change.uid)) {
            if (each != master)
                shift.apply(each, ICAL_RECURRENCEID_PROPERTY);
        }
    }
    writeFields(master, change);
    return std::nullopt;
}

} // namespace quor::toolkit
