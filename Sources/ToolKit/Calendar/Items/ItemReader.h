// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/ItemRecord.h"

#include <libical/ical.h>

#include <map>
#include <optional>
#include <utility>

namespace quor::toolkit {

/// The zones that properties name, so that each of them is looked up and read once. Use one only as long as
/// the components of the properties exist.
class ZoneCache final {
public:
    /// Returns the zone of the moment that a property holds.
    [[nodiscard]] ItemZone zoneOf(icalproperty* property);

private:
    std::map<std::pair<icalcomponent*, QByteArray>, ItemZone> known_; ///< by calendar and name
};

/// Appends the items of a VCALENDAR to `records`.
void readItems(icalcomponent* calendar, FileRecords& records);

/// Returns an empty text if the component has no identifier.
[[nodiscard]] QString uidOf(icalcomponent* component);
/// Returns `nullopt` if the event has no readable start.
[[nodiscard]] std::optional<EventFields> readEvent(icalcomponent* event, ZoneCache& zones);
[[nodiscard]] ReminderFields readReminder(icalcomponent* reminder, ZoneCache& zones);
/// Returns the moment that a property holds, `nullopt` if it is no valid date or out of range.
[[nodiscard]] std::optional<Date> readMoment(icalproperty* property, ZoneCache& zones);
/// Returns the start of the occurrence that an override replaces (RECURRENCE-ID), `nullopt` for any other
/// event.
[[nodiscard]] std::optional<Date> replacedStart(icalcomponent* event, ZoneCache& zones);
/// Whether the event is the master event of a series.
[[nodiscard]] bool recurs(icalcomponent* event);

// For a single item.
[[nodiscard]] inline std::optional<EventFields> readEvent(icalcomponent* event)
{
    ZoneCache zones;
    return readEvent(event, zones);
}
[[nodiscard]] inline ReminderFields readReminder(icalcomponent* reminder)
{
    ZoneCache zones;
    return readReminder(reminder, zones);
}

} // namespace quor::toolkit
