// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Items/ItemWriter.h"

#include "ToolKit/Calendar/Items/Components.h"
#include "ToolKit/Calendar/Items/ItemReader.h"

#include <chrono>

namespace quor::toolkit {

namespace {

/// Removes control characters. A line break in a URI would begin another property.
QByteArray clean(const QString& text, bool isLine)
{
    QString kept = text;
    kept.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    kept.removeIf([&](QChar each) {
        const bool isBlank = each == u'\t' || each == u'\n';
        return (each.unicode() < 0x20 && (isLine || !isBlank)) || each.unicode() == 0x7F;
    });
    return kept.toUtf8();
}

/// Adds the zone's definition to the calendar under its plain name. libical itself would write a prefix.
void defineZone(icalcomponent* component, const QString& name)
{
    icalcomponent* const calendar = icalcomponent_get_parent(component);
    const QByteArray id = name.toUtf8();
    if (!calendar || zoneDefinition(calendar, id))
        return;
    icaltimezone* const zone = icaltimezone_get_builtin_timezone(id.constData());
    icalcomponent* const definition = zone ? icaltimezone_get_component(zone) : nullptr;
    if (!definition)
        return; // readers that know the name need no definition
    icalcomponent* const copy = icalcomponent_new_clone(definition);
    if (icalproperty* const own = icalcomponent_get_first_property(copy, ICAL_TZID_PROPERTY))
        icalproperty_set_tzid(own, id.constData());
    icalcomponent_add_component(calendar, copy);
}

} // namespace

void removeAll(icalcomponent* component, icalproperty_kind kind)
{
    for (icalproperty* each : propertiesIn(component, kind))
        removeProperty(component, each);
}

void writeText(icalcomponent* component, icalproperty_kind kind, const QString& text)
{
    const bool isUri = kind == ICAL_URL_PROPERTY;
    const QByteArray bytes = clean(text, isUri);
    icalproperty* property = icalcomponent_get_first_property(component, kind);
    if (bytes.isEmpty()) {
        removeAll(component, kind);
        return;
    }
    icalvalue* const value
        = isUri ? icalvalue_new_uri(bytes.constData()) : icalvalue_new_text(bytes.constData());
    if (!property) {
        property = icalproperty_new(kind);
        icalcomponent_add_property(component, property);
    }
    icalproperty_remove_parameter_by_kind(property, ICAL_ALTREP_PARAMETER); // it refers to the old text
    icalproperty_set_value(property, value);
}

ItemZone zoneFor(icalcomponent* component, const QString& name)
{
    if (name.isEmpty())
        return {};
    return ItemZone::named(name.toUtf8(), icalcomponent_get_parent(component));
}

void addMoment(
    icalcomponent* component, icalproperty_kind kind, Date moment, bool isDate, const ItemZone& zone)
{
    const icaltimetype time = zone.local(moment, isDate);
    icalproperty* const property = icalproperty_new(kind);
    icalproperty_set_value(property, isDate ? icalvalue_new_date(time) : icalvalue_new_datetime(time));
    if (isDate)
        icalproperty_set_parameter(property, icalparameter_new_value(ICAL_VALUE_DATE));
    icalcomponent_add_property(component, property);
    if (isDate || zone.name().isEmpty() || zone.name() == u"UTC")
        return;
    icalproperty_set_parameter(property, icalparameter_new_tzid(zone.name().toUtf8().constData()));
    defineZone(component, zone.name());
}

void writeMoment(
    icalcomponent* component, icalproperty_kind kind, Date moment, bool isDate, const ItemZone& zone)
{
    removeAll(component, kind);
    addMoment(component, kind, moment, isDate, zone);
}

void writeTimes(icalcomponent* event, const EventFields& fields)
{
    ItemZone zone = fields.isAllDay ? ItemZone() : zoneFor(event, fields.timeZone);
    // When the clock is set back, an hour happens twice. The second one cannot be written in the zone.
    const auto isWritableInZone = [&](Date moment) {
        return std::chrono::abs(zone.moment(zone.local(moment, false)) - moment) < std::chrono::seconds(1);
    };
    const bool isSeries = !fields.recurrenceRule.isEmpty() || recurs(event);
    if (!fields.isAllDay && !zone.name().isEmpty() && !isSeries
        && !(isWritableInZone(fields.startDate) && isWritableInZone(fields.endDate)))
        zone = ItemZone::utc();
    removeAll(event, ICAL_DURATION_PROPERTY);
    writeMoment(event, ICAL_DTSTART_PROPERTY, fields.startDate, fields.isAllDay, zone);
    if (!fields.isAllDay) {
        writeMoment(event, ICAL_DTEND_PROPERTY, fields.endDate, false, zone);
        return;
    }
    // An end within a day includes that whole day. The shortest event lasts one day.
    const Date within = std::max(fields.startDate, fields.endDate - std::chrono::seconds(1));
    icaltimetype end = zone.local(within, true);
    icaltime_adjust(&end, 1, 0, 0, 0);
    writeMoment(event, ICAL_DTEND_PROPERTY, zone.moment(end), true, zone);
}

void touch(icalcomponent* component)
{
    const Date now = platform::SystemClock().now();
    writeMoment(component, ICAL_DTSTAMP_PROPERTY, now, false, ItemZone::utc());
    writeMoment(component, ICAL_LASTMODIFIED_PROPERTY, now, false, ItemZone::utc());
    icalproperty* const sequence = icalcomponent_get_first_property(component, ICAL_SEQUENCE_PROPERTY);
    const int number = sequence ? icalproperty_get_sequence(sequence) : -1;
    removeAll(component, ICAL_SEQUENCE_PROPERTY);
    icalcomponent_add_property(
        component, icalproperty_new_sequence(number < 1'000'000'000 ? number + 1 : number));
}

} // namespace quor::toolkit
