// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Items/ReminderEdits.h"

#include "ToolKit/Calendar/Items/ItemErrors.h"
#include "ToolKit/Calendar/Items/ItemReader.h"
#include "ToolKit/Calendar/Items/ItemWriter.h"

#include <tuple>

namespace quor::toolkit {

namespace {

auto completion(const ReminderFields& fields)
{
    return std::tie(fields.isCompleted, fields.completionDate);
}

bool clashes(const ReminderFields& current, const ReminderChange& change)
{
    const ReminderFields& base = change.base;
    const ReminderFields& wanted = change.fields;
    return clash(current.title, base.title, wanted.title) || clash(current.notes, base.notes, wanted.notes)
        || clash(current.dueDate, base.dueDate, wanted.dueDate)
        || clash(completion(current), completion(base), completion(wanted))
        || clash(current.priority, base.priority, wanted.priority);
}

void writeDue(icalcomponent* reminder, std::optional<Date> due)
{
    icalproperty* const before = icalcomponent_get_first_property(reminder, ICAL_DUE_PROPERTY);
    const bool wasDay = before && icalproperty_get_due(before).is_date;
    ItemZone zone = before ? ZoneCache().zoneOf(before) : ItemZone::ofUser();
    removeAll(reminder, ICAL_DURATION_PROPERTY);
    if (!due) {
        removeAll(reminder, ICAL_DUE_PROPERTY);
        return;
    }
    const bool isMidnight = ItemZone().moment(ItemZone().local(*due, true)) == *due;
    if (wasDay && !isMidnight)
        zone = ItemZone::ofUser();
    writeMoment(reminder, ICAL_DUE_PROPERTY, *due, wasDay && isMidnight, zone);
}

void writeCompletion(icalcomponent* reminder, const ReminderFields& fields)
{
    for (const auto kind : {ICAL_STATUS_PROPERTY, ICAL_COMPLETED_PROPERTY, ICAL_PERCENTCOMPLETE_PROPERTY})
        removeAll(reminder, kind);
    icalcomponent_add_property(reminder,
        icalproperty_new_status(fields.isCompleted ? ICAL_STATUS_COMPLETED : ICAL_STATUS_NEEDSACTION));
    if (!fields.isCompleted)
        return;
    icalcomponent_add_property(reminder, icalproperty_new_percentcomplete(100));
    if (fields.completionDate)
        writeMoment(reminder, ICAL_COMPLETED_PROPERTY, *fields.completionDate, false, ItemZone::utc());
}

void writeFields(icalcomponent* reminder, const ReminderChange& change)
{
    const ReminderFields& base = change.base;
    const ReminderFields& wanted = change.fields;
    if (base.title != wanted.title)
        writeText(reminder, ICAL_SUMMARY_PROPERTY, wanted.title);
    if (base.notes != wanted.notes)
        writeText(reminder, ICAL_DESCRIPTION_PROPERTY, wanted.notes);
    if (base.dueDate != wanted.dueDate)
        writeDue(reminder, wanted.dueDate);
    if (completion(base) != completion(wanted) || change.isNew)
        writeCompletion(reminder, wanted);
    if (base.priority != wanted.priority) {
        removeAll(reminder, ICAL_PRIORITY_PROPERTY);
        if (wanted.priority != 0)
            icalcomponent_add_property(reminder, icalproperty_new_priority(wanted.priority));
    }
    touch(reminder);
}

} // namespace

EventStoreResult defectOf(const ReminderFields& fields, const ReminderFields&)
{
    const bool isSound = (!fields.dueDate || isWritable(*fields.dueDate))
        && (!fields.completionDate || isWritable(*fields.completionDate)) && fields.priority >= 0
        && fields.priority <= 9;
    if (isSound)
        return std::nullopt;
    return invalid(QStringLiteral("a date or the priority is out of range"));
}

EventStoreResult saveItem(ItemFile& file, const ReminderChange& change)
{
    icalcomponent* reminder = file.master(ICAL_VTODO_COMPONENT, change.uid);
    if (change.isNew) {
        if (reminder)
            return conflict(change.uid);
        reminder = file.add(ICAL_VTODO_COMPONENT, change.uid);
    } else if (!reminder) {
        return notFound(change.uid);
    } else if (clashes(readReminder(reminder), change)) {
        return conflict(change.uid);
    }
    writeFields(reminder, change);
    return std::nullopt;
}

EventStoreResult removeItem(ItemFile& file, const ReminderChange& change)
{
    icalcomponent* const reminder = file.master(ICAL_VTODO_COMPONENT, change.uid);
    if (!reminder)
        return notFound(change.uid);
    if (readReminder(reminder) != change.base)
        return conflict(change.uid);
    for (icalcomponent* each : file.components(ICAL_VTODO_COMPONENT, change.uid))
        file.remove(each);
    return std::nullopt;
}

} // namespace quor::toolkit
