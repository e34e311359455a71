// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Items/ItemReader.h"

#include "ToolKit/Calendar/Items/Components.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <cstring>

namespace quor::toolkit {

namespace {

using Seconds = std::chrono::duration<double>;

icalproperty* property(icalcomponent* component, icalproperty_kind kind)
{
    return icalcomponent_get_first_property(component, kind);
}

/// The value of a text property, without escapes. Empty if the component does not have the property.
QString text(icalcomponent* component, icalproperty_kind kind)
{
    icalproperty* const found = property(component, kind);
    icalvalue* const value = found ? icalproperty_get_value(found) : nullptr;
    if (!value)
        return {};
    switch (icalvalue_isa(value)) {
    case ICAL_TEXT_VALUE:
        return QString::fromUtf8(icalvalue_get_text(value));
    case ICAL_URI_VALUE:
        return QString::fromUtf8(icalvalue_get_uri(value));
    default:
        return QString::fromUtf8(icalvalue_as_ical_string(value));
    }
}

icaltimetype timeOf(icalproperty* property)
{
    icalvalue* const value = icalproperty_get_value(property);
    if (!value)
        return icaltime_null_time();
    switch (icalvalue_isa(value)) {
    case ICAL_DATE_VALUE:
        return icalvalue_get_date(value);
    case ICAL_DATETIME_VALUE:
        return icalvalue_get_datetime(value);
    case ICAL_DATETIMEPERIOD_VALUE: {
        const auto either = icalvalue_get_datetimeperiod(value);
        return icaltime_is_null_time(either.time) ? either.period.start : either.time;
    }
    case ICAL_PERIOD_VALUE:
        return icalvalue_get_period(value).start;
    default:
        return icaltime_null_time();
    }
}

/// The DURATION. A negative one has no length.
std::optional<Seconds> durationOf(icalcomponent* component)
{
    icalproperty* const found = property(component, ICAL_DURATION_PROPERTY);
    if (!found)
        return std::nullopt;
    const auto duration = icalproperty_get_duration(found);
    if (duration.is_neg)
        return Seconds(0);
    return Seconds(((duration.weeks * 7.0 + duration.days) * 24 + duration.hours) * 3600
        + duration.minutes * 60.0 + duration.seconds);
}

Date endOf(icalcomponent* event, const EventFields& fields, icalproperty* start, ZoneCache& zones)
{
    if (icalproperty* const found = property(event, ICAL_DTEND_PROPERTY)) {
        const auto end = readMoment(found, zones);
        if (end && *end > fields.startDate)
            return *end;
    } else if (const auto duration = durationOf(event); duration && !fields.isAllDay) {
        const Date end = fields.startDate + *duration;
        if (isWritable(end))
            return end;
    }
    if (!fields.isAllDay)
        return fields.startDate;
    const Seconds days = durationOf(event).value_or(Seconds(0));
    const int count = days.count() < 1e9 ? std::max(1, int(days.count() / 86'400)) : 1;
    icaltimetype end = timeOf(start);
    icaltime_adjust(&end, count, 0, 0, 0);
    return zones.zoneOf(start).moment(end);
}

QByteArray ruleText(icalproperty* property)
{
    icalrecurrencetype rule = icalproperty_get_rrule(property);
    char* const text = icalrecurrencetype_as_string_r(&rule);
    QByteArray result = text;
    std::free(text);
    return result;
}

std::vector<Date> moments(icalcomponent* event, icalproperty_kind kind, ZoneCache& zones)
{
    std::vector<Date> moments;
    for (icalproperty* each : propertiesIn(event, kind)) {
        if (const auto moment = readMoment(each, zones))
            moments.push_back(*moment);
    }
    std::ranges::sort(moments);
    return moments;
}

std::shared_ptr<Recurrence> recurrenceOf(icalcomponent* event, const EventFields& fields, ZoneCache& zones)
{
    auto recurrence = std::make_shared<Recurrence>();
    icalproperty* const start = property(event, ICAL_DTSTART_PROPERTY);
    recurrence->zone = zones.zoneOf(start);
    recurrence->first = timeOf(start);
    recurrence->days = int(std::clamp((fields.endDate - fields.startDate) / Seconds(86'400) + 0.5, 1.0, 1e6));
    for (icalproperty* each : propertiesIn(event, ICAL_RRULE_PROPERTY))
        recurrence->rules.push_back(ruleText(each));
    recurrence->added = moments(event, ICAL_RDATE_PROPERTY, zones);
    recurrence->removed = moments(event, ICAL_EXDATE_PROPERTY, zones);
    return recurrence;
}

void readEvents(icalcomponent* calendar, std::vector<EventRecord>& events, ZoneCache& zones)
{
    std::map<QString, std::shared_ptr<Recurrence>> series;
    const auto visit = [&](bool overrides) {
        for (icalcomponent* each : componentsIn(calendar, ICAL_VEVENT_COMPONENT)) {
            const auto replaced = replacedStart(each, zones);
            const QString uid = replaced.has_value() == overrides ? uidOf(each) : QString();
            const auto fields = uid.isEmpty() ? std::nullopt : readEvent(each, zones);
            if (!fields)
                continue;
            const auto found = overrides ? series.find(uid) : series.end();
            if (found != series.end()) {
                EventFields own = *fields;
                own.recurrenceRule = found->second->rules.empty()
                    ? QString()
                    : QString::fromUtf8(found->second->rules.front());
                found->second->overrides.insert_or_assign(*replaced, own);
                continue;
            }
            const auto recurrence = overrides || !recurs(each) ? nullptr : recurrenceOf(each, *fields, zones);
            if (recurrence)
                series.insert_or_assign(uid, recurrence);
            events.push_back({uid, *fields, replaced, recurrence});
        }
    };
    visit(false);
    visit(true); // an override may stand before its master event in the file
}

} // namespace

QString uidOf(icalcomponent* component)
{
    return text(component, ICAL_UID_PROPERTY);
}

bool recurs(icalcomponent* event)
{
    return property(event, ICAL_RRULE_PROPERTY) || property(event, ICAL_RDATE_PROPERTY);
}

ItemZone ZoneCache::zoneOf(icalproperty* property)
{
    if (icaltime_is_utc(timeOf(property)))
        return ItemZone::utc();
    icalparameter* const name = icalproperty_get_first_parameter(property, ICAL_TZID_PARAMETER);
    const char* const text = name ? icalparameter_get_tzid(name) : nullptr;
    if (!text)
        return {};
    icalcomponent* const parent = icalproperty_get_parent(property);
    icalcomponent* const calendar = parent ? icalcomponent_get_parent(parent) : nullptr;
    const auto [found, isNew] = known_.try_emplace({calendar, text});
    if (isNew)
        found->second = ItemZone::named(text, calendar);
    return found->second;
}

std::optional<Date> readMoment(icalproperty* property, ZoneCache& zones)
{
    const icaltimetype time = timeOf(property);
    if (icaltime_is_null_time(time))
        return std::nullopt;
    const Date moment = zones.zoneOf(property).moment(time);
    return isWritable(moment) ? std::optional(moment) : std::nullopt;
}

std::optional<Date> replacedStart(icalcomponent* event, ZoneCache& zones)
{
    icalproperty* const found = property(event, ICAL_RECURRENCEID_PROPERTY);
    return found ? readMoment(found, zones) : std::nullopt;
}

std::optional<EventFields> readEvent(icalcomponent* event, ZoneCache& zones)
{
    icalproperty* const start = property(event, ICAL_DTSTART_PROPERTY);
    const auto moment = start ? readMoment(start, zones) : std::nullopt;
    if (!moment)
        return std::nullopt;
    EventFields fields;
    fields.title = text(event, ICAL_SUMMARY_PROPERTY);
    fields.notes = text(event, ICAL_DESCRIPTION_PROPERTY);
    fields.location = text(event, ICAL_LOCATION_PROPERTY);
    fields.url = text(event, ICAL_URL_PROPERTY);
    fields.startDate = *moment;
    fields.isAllDay = timeOf(start).is_date;
    fields.timeZone = fields.isAllDay ? QString() : zones.zoneOf(start).name();
    fields.endDate = endOf(event, fields, start, zones);
    if (icalproperty* const rule = property(event, ICAL_RRULE_PROPERTY))
        fields.recurrenceRule = QString::fromUtf8(ruleText(rule));
    return fields;
}

ReminderFields readReminder(icalcomponent* reminder, ZoneCache& zones)
{
    ReminderFields fields;
    fields.title = text(reminder, ICAL_SUMMARY_PROPERTY);
    fields.notes = text(reminder, ICAL_DESCRIPTION_PROPERTY);
    if (icalproperty* const due = property(reminder, ICAL_DUE_PROPERTY)) {
        fields.dueDate = readMoment(due, zones);
    } else if (icalproperty* const start = property(reminder, ICAL_DTSTART_PROPERTY)) {
        const auto begin = readMoment(start, zones);
        const auto duration = durationOf(reminder);
        if (begin && duration && isWritable(*begin + *duration))
            fields.dueDate = *begin + *duration;
    }
    icalproperty* const completed = property(reminder, ICAL_COMPLETED_PROPERTY);
    icalproperty* const status = property(reminder, ICAL_STATUS_PROPERTY);
    const auto state = status ? icalproperty_get_status(status) : ICAL_STATUS_NONE;
    // A cancelled reminder needs no work either.
    fields.isCompleted = completed || state == ICAL_STATUS_COMPLETED || state == ICAL_STATUS_CANCELLED;
    if (completed)
        fields.completionDate = readMoment(completed, zones);
    if (icalproperty* const priority = property(reminder, ICAL_PRIORITY_PROPERTY))
        fields.priority = std::clamp(icalproperty_get_priority(priority), 0, 9);
    return fields;
}

void readItems(icalcomponent* calendar, FileRecords& records)
{
    ZoneCache zones;
    readEvents(calendar, records.events, zones);
    for (icalcomponent* each : componentsIn(calendar, ICAL_VTODO_COMPONENT)) {
        const QString uid = replacedStart(each, zones) ? QString() : uidOf(each);
        if (!uid.isEmpty())
            records.reminders.push_back({uid, readReminder(each, zones)});
    }
}

} // namespace quor::toolkit
