// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/ItemRecord.h"

#include <libical/ical.h>

namespace quor::toolkit {

// The functions `write...` set a property of a component, and replace all earlier ones of its kind.

/// An empty text removes the property. Control characters, which no calendar file may hold, are left out.
void writeText(icalcomponent* component, icalproperty_kind kind, const QString& text);
/// Adds a definition of the zone to the component's calendar if it has none.
void writeMoment(
    icalcomponent* component, icalproperty_kind kind, Date moment, bool isDate, const ItemZone& zone);
/// Like `writeMoment`, but keeps earlier properties of that kind.
void addMoment(
    icalcomponent* component, icalproperty_kind kind, Date moment, bool isDate, const ItemZone& zone);
/// Writes start, end and the flag for whole days.
void writeTimes(icalcomponent* event, const EventFields& fields);
/// Removes all properties of that kind.
void removeAll(icalcomponent* component, icalproperty_kind kind);
/// Updates the stamps by which other programs notice a change.
void touch(icalcomponent* component);
/// Returns the zone that a name means in the component's calendar. An empty name means floating time.
[[nodiscard]] ItemZone zoneFor(icalcomponent* component, const QString& name);

} // namespace quor::toolkit
