// SPDX-License-Identifier: MIT
#include "CalendarByHand.h"

#include <QDir>
#include <QFile>

#include <algorithm>
#include <cstdlib>

namespace quor::benchmarks {

using platform::Date;
using platform::dateFromSeconds;
using toolkit::EventFields;

namespace {

constexpr std::time_t aDay = 86'400;

std::time_t seconds(Date date)
{
    return static_cast<std::time_t>(platform::secondsSince1970(date));
}

/// Calls `visit` with the start of each occurrence that overlaps [start, end).
template <class Visit>
void expand(icalrecurrencetype rule, icaltimetype first, icaltimezone* zone, std::time_t length,
    std::time_t start, std::time_t end, Visit visit)
{
    first.zone = nullptr;
    if (!icaltime_is_null_time(rule.until))
        rule.until = icaltime_convert_to_zone(rule.until, zone);
    icalrecur_iterator* const iterator = icalrecur_iterator_new(rule, first);
    if (rule.count == 0) { // a rule with a count is walked from its first occurrence
        icaltimetype from = icaltime_from_timet_with_zone(start - aDay, 0, zone);
        from.zone = nullptr;
        if (icaltime_compare(from, first) > 0)
            icalrecur_iterator_set_start(iterator, from);
    }
    for (auto next = icalrecur_iterator_next(iterator); !icaltime_is_null_time(next);
         next = icalrecur_iterator_next(iterator)) {
        const std::time_t moment = icaltime_as_timet_with_zone(next, zone);
        if (moment >= end)
            break;
        if (moment + length > start)
            visit(moment);
    }
    icalrecur_iterator_free(iterator);
}

bool overlaps(std::time_t from, std::time_t to, std::time_t start, std::time_t end)
{
    return from < end && to > start;
}

CalendarByHand::Fields byStart(CalendarByHand::Fields found)
{
    std::ranges::stable_sort(found, {}, &EventFields::startDate);
    return found;
}

void appendMoved(
    CalendarByHand::Fields& found, const EventFields& fields, std::time_t moment, std::time_t length)
{
    EventFields& moved = found.emplace_back(fields);
    moved.startDate = dateFromSeconds(double(moment));
    moved.endDate = dateFromSeconds(double(moment + length));
}

} // namespace

CalendarByHand::CalendarByHand(const QString& folder)
{
    for (const QString& name : QDir(folder).entryList({QStringLiteral("*.ics")}, QDir::Files)) {
        QFile file(folder + u'/' + name);
        if (!file.open(QIODevice::ReadOnly))
            continue;
        Parsed parsed;
        parsed.root.reset(icalparser_parse_string(file.readAll().constData()));
        parsed.event = icalcomponent_get_first_component(parsed.root.get(), ICAL_VEVENT_COMPONENT);
        icalproperty* const start = icalcomponent_get_first_property(parsed.event, ICAL_DTSTART_PROPERTY);
        icalparameter* const id = icalproperty_get_first_parameter(start, ICAL_TZID_PARAMETER);
        parsed.zone = id ? icaltimezone_get_builtin_timezone(icalparameter_get_tzid(id))
                         : icaltimezone_get_utc_timezone();
        parsed.zoneName = QString::fromUtf8(id ? icalparameter_get_tzid(id) : "UTC");

        Read& read = read_.emplace_back();
        read.fields = fieldsOf(parsed);
        read.first = icalproperty_get_dtstart(start);
        read.zone = parsed.zone;
        icalproperty* const rule = icalcomponent_get_first_property(parsed.event, ICAL_RRULE_PROPERTY);
        read.recurs = rule;
        if (rule)
            read.rule = icalproperty_get_rrule(rule);
        parsed_.push_back(std::move(parsed));
    }
}

EventFields CalendarByHand::fieldsOf(const Parsed& parsed)
{
    icalcomponent* const event = parsed.event;
    const auto time = [&](icalproperty_kind kind) {
        icalproperty* const property = icalcomponent_get_first_property(event, kind);
        const auto value = icalvalue_get_datetime(icalproperty_get_value(property));
        return dateFromSeconds(double(icaltime_as_timet_with_zone(value, parsed.zone)));
    };
    EventFields fields;
    fields.title = QString::fromUtf8(icalcomponent_get_summary(event));
    fields.notes = QString::fromUtf8(icalcomponent_get_description(event));
    fields.location = QString::fromUtf8(icalcomponent_get_location(event));
    if (icalproperty* const url = icalcomponent_get_first_property(event, ICAL_URL_PROPERTY))
        fields.url = QString::fromUtf8(icalproperty_get_url(url));
    fields.startDate = time(ICAL_DTSTART_PROPERTY);
    fields.endDate = time(ICAL_DTEND_PROPERTY);
    fields.timeZone = parsed.zoneName;
    if (icalproperty* const found = icalcomponent_get_first_property(event, ICAL_RRULE_PROPERTY)) {
        icalrecurrencetype rule = icalproperty_get_rrule(found);
        char* const text = icalrecurrencetype_as_string_r(&rule);
        fields.recurrenceRule = QString::fromUtf8(text);
        std::free(text);
    }
    return fields;
}

CalendarByHand::Fields CalendarByHand::walkComponents(Date start, Date end) const
{
    Fields found;
    const std::time_t from = seconds(start);
    const std::time_t to = seconds(end);
    for (const Parsed& parsed : parsed_) {
        const auto time = [&](icalproperty_kind kind) {
            icalproperty* const property = icalcomponent_get_first_property(parsed.event, kind);
            return icalvalue_get_datetime(icalproperty_get_value(property));
        };
        const icaltimetype first = time(ICAL_DTSTART_PROPERTY);
        const std::time_t moment = icaltime_as_timet_with_zone(first, parsed.zone);
        const std::time_t last = icaltime_as_timet_with_zone(time(ICAL_DTEND_PROPERTY), parsed.zone);
        icalproperty* const rule = icalcomponent_get_first_property(parsed.event, ICAL_RRULE_PROPERTY);
        if (!rule) {
            if (overlaps(moment, last, from, to))
                found.push_back(fieldsOf(parsed));
            continue;
        }
        if (moment >= to)
            continue;
        std::optional<EventFields> fields;
        expand(icalproperty_get_rrule(rule), first, parsed.zone, last - moment, from, to,
            [&](std::time_t occurrence) {
                if (!fields)
                    fields = fieldsOf(parsed);
                appendMoved(found, *fields, occurrence, last - moment);
            });
    }
    return byStart(std::move(found));
}

CalendarByHand::Fields CalendarByHand::walkFields(Date start, Date end) const
{
    Fields found;
    const std::time_t from = seconds(start);
    const std::time_t to = seconds(end);
    for (const Read& read : read_) {
        if (read.fields.startDate >= end)
            continue;
        if (!read.recurs) {
            if (read.fields.endDate > start)
                found.push_back(read.fields);
            continue;
        }
        const std::time_t length = seconds(read.fields.endDate) - seconds(read.fields.startDate);
        expand(read.rule, read.first, read.zone, length, from, to,
            [&](std::time_t occurrence) { appendMoved(found, read.fields, occurrence, length); });
    }
    return byStart(std::move(found));
}

} // namespace quor::benchmarks
