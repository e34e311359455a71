// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/ItemRecord.h"

#include <libical/ical.h>

namespace quor::toolkit {

// What puts values into a component, in place of those that it has. An empty text removes the property.

void writeText(icalcomponent* component, icalproperty_kind kind, const QString& text);
/// A definition of the zone goes into the component's calendar where it lacks one.
void writeMoment(
    icalcomponent* component, icalproperty_kind kind, Date moment, bool isDate, const ItemZone& zone);
/// One more of its kind.
void addMoment(
    icalcomponent* component, icalproperty_kind kind, Date moment, bool isDate, const ItemZone& zone);
/// Start, end and whole days.
void writeTimes(icalcomponent* event, const EventFields& fields);
void removeAll(icalcomponent* component, icalproperty_kind kind);
/// Tells other programs that it changed.
void touch(icalcomponent* component);
/// The zone that a name means in an event's calendar.
[[nodiscard]] ItemZone zoneFor(icalcomponent* component, const QString& name);

} // namespace quor::toolkit
