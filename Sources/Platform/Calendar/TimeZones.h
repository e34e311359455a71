// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QTimeZone>

#include <optional>

/// Time zones by name and from the user's settings. All of them take their offsets from the zone data of the
/// system, as the C library does. Any thread.
namespace quor::platform {

/// The zone of this name, as in "Europe/Berlin" or "US/Eastern". Returns `nullopt` if the system's zone data
/// have no such zone. Offsets ("UTC+2") and rules ("CET-1CEST") are no names.
[[nodiscard]] std::optional<QTimeZone> namedTimeZone(const QByteArray& name);

/// The zone that a value of the environment variable TZ means to the C library: a name, the path of a zone
/// file, or a rule such as "CET-1CEST,M3.5.0,M10.5.0/3". A leading colon is ignored. Offsets of rules count
/// westward: "UTC+2" is two hours behind UTC. A rule with a summer time but no dates for it changes on
/// today's dates of the United States in every year, where the C library may use a file of the system for the
/// years up to 2037. Returns UTC for an empty or unknown value.
[[nodiscard]] QTimeZone timeZoneOfVariable(QByteArray value);

/// The user's zone: that of the environment variable TZ if it is set, else the machine's. Cheap: a change of
/// the variable takes effect at once, a change of the machine's zone within a second.
[[nodiscard]] QTimeZone userTimeZone();

} // namespace quor::platform
