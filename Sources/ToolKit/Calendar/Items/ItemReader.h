// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/ItemRecord.h"

#include <libical/ical.h>

#include <optional>

namespace quor::toolkit {

/// Appends the items of a VCALENDAR to `records`.
void readItems(icalcomponent* calendar, FileRecords& records);

/// Returns an empty text if the component has no identifier.
[[nodiscard]] QString uidOf(icalcomponent* component);
/// Returns `nullopt` if the event has no readable start.
[[nodiscard]] std::optional<EventFields> readEvent(icalcomponent* event);
[[nodiscard]] ReminderFields readReminder(icalcomponent* reminder);
/// Returns the moment that a property holds, `nullopt` if it is no valid date or out of range.
[[nodiscard]] std::optional<Date> readMoment(icalproperty* property);
/// Returns the zone of the moment that a property holds.
[[nodiscard]] ItemZone zoneOf(icalproperty* property);
/// Returns the start of the occurrence that an override replaces (RECURRENCE-ID), `nullopt` for any other
/// event.
[[nodiscard]] std::optional<Date> replacedStart(icalcomponent* event);
/// Whether the event is the master event of a series.
[[nodiscard]] bool recurs(icalcomponent* event);

} // namespace quor::toolkit
