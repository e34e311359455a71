// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/ItemRecord.h"

#include <libical/ical.h>

#include <optional>

namespace quor::toolkit {

/// Adds what a VCALENDAR holds to `records`.
void readItems(icalcomponent* calendar, FileRecords& records);

[[nodiscard]] QString uidOf(icalcomponent* component);
/// None without a start that can be read.
[[nodiscard]] std::optional<EventFields> readEvent(icalcomponent* event);
[[nodiscard]] ReminderFields readReminder(icalcomponent* reminder);
/// The moment of a property with a time, in the zone that it names.
[[nodiscard]] std::optional<Date> readMoment(icalproperty* property);
[[nodiscard]] ItemZone zoneOf(icalproperty* property);
/// Of RECURRENCE-ID.
[[nodiscard]] std::optional<Date> replacedStart(icalcomponent* event);
[[nodiscard]] bool recurs(icalcomponent* event);

} // namespace quor::toolkit
