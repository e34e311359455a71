// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Stores/EventPolicy.h"

#include "ToolKit/Calendar/Items/ItemErrors.h"
#include "ToolKit/Calendar/Items/RecurrenceExpansion.h"
#include "ToolKit/Calendar/Stores/ItemSaving.h"

#include <QUuid>

#include <utility>

namespace quor::toolkit {

namespace {

/// Returns the record of the override `occurrence` if its series is not in the file, otherwise the record of
/// the series or of the event that happens once. Returns null if the file has neither.
const EventRecord* recordOf(const FileRecords& records, const QString& uid, std::optional<Date> occurrence)
{
    const EventRecord* found = nullptr;
    for (const EventRecord& each : records.events) {
        if (each.uid != uid)
            continue;
        if (each.occurrence && each.occurrence == occurrence)
            return &each;
        if (!found && (!each.occurrence || !occurrence))
            found = &each;
    }
    return found;
}

/// Ends the series before the changed occurrence, and stages another one in a file of its own.
EventStoreResult split(CalendarFolder& folder, const EventChange& change, ItemPlace& place)
{
    const QString uid = QUuid::createUuid().toString(QUuid::WithoutBraces);
    const QByteArray file = folder.newFile(uid);
    const auto begin = [uid, change](ItemFile& each) { return beginSeries(each, change, uid); };
    const auto end = [change](ItemFile& each) { return endSeries(each, change); };
    if (auto failure = stageTransfer(
            {folder, place.file}, {folder, file}, copyOfItem(folder, place.file, change.uid), begin, end))
        return failure;
    place.file = file;
    place.uid = uid;
    place.occurrence = change.fields.startDate;
    return std::nullopt;
}

} // namespace

EventStoreResult EventPolicy::saveInPlace(CalendarFolder& folder, EventChange change, ItemPlace& place) const
{
    const FileRecords* const records = folder.records(place.file);
    const EventRecord* const record = records ? recordOf(*records, change.uid, change.occurrence) : nullptr;
    if (!record)
        return notFound(change.uid);
    if (span_ == EventSpan::thisEvent || !record->recurrence || !change.occurrence)
        return folder.stage(place.file, [change](ItemFile& file) { return saveItem(file, change); });
    if (*change.occurrence > record->fields.startDate)
        return split(folder, change, place);
    change.occurrence.reset();
    return folder.stage(place.file, [change](ItemFile& file) { return saveSeries(file, change); });
}

ItemEdit EventPolicy::removal(const EventChange& change) const
{
    const bool endsSeries = span_ == EventSpan::futureEvents && change.occurrence;
    return [change, endsSeries](
               ItemFile& file) { return endsSeries ? endSeries(file, change) : removeItem(file, change); };
}

std::optional<EventFields> EventPolicy::readBack(const FileRecords& records, ItemPlace& place) const
{
    const EventRecord* const record = recordOf(records, place.uid, place.occurrence);
    if (!record)
        return std::nullopt;
    if (!record->recurrence && !record->occurrence)
        place.occurrence.reset();
    else if (!place.occurrence || (span_ == EventSpan::futureEvents && record->recurrence))
        place.occurrence = record->recurrence ? firstOccurrence(*record) : record->occurrence;
    return record->recurrence && place.occurrence ? fieldsAt(*record, *place.occurrence) : record->fields;
}

} // namespace quor::toolkit
