// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>
#include <optional>

class QDateTime;
class QTimeZone;

namespace quor::platform {

/// A moment: the seconds since 1970-01-01 00:00:00 UTC, as a double. For the next centuries it is exact to
/// less than a millionth of a second. It has no time zone.
using Date = std::chrono::sys_time<std::chrono::duration<double>>;

[[nodiscard]] inline double secondsSince1970(Date date)
{
    return date.time_since_epoch().count();
}
[[nodiscard]] inline Date dateFromSeconds(double seconds)
{
    return Date(std::chrono::duration<double>(seconds));
}

/// The furthest moment that calendars cover, in seconds before or after 1970: about 250,000 years, as far as
/// a double holds milliseconds exactly.
constexpr double furthestSeconds = 8e12;

/// The moment of `dateTime`, which can be in any time zone, exact to the millisecond. Returns `nullopt` for
/// an invalid date and time, and for one beyond `furthestSeconds`.
[[nodiscard]] std::optional<Date> dateFromQDateTime(const QDateTime& dateTime);

/// `date`, rounded to the nearest millisecond, as a date and time in `zone`. Returns an invalid one for NaN,
/// for a moment beyond `furthestSeconds` and for an invalid zone. `dateFromQDateTime` and back is the same
/// date and time.
[[nodiscard]] QDateTime qDateTimeFromDate(Date date, const QTimeZone& zone);

/// The same in the user's zone. The result has the time spec `Qt::LocalTime`.
[[nodiscard]] QDateTime qDateTimeFromDate(Date date);

} // namespace quor::platform
