// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Clock.h"
#include "ToolKit/Dates/DurationInterval.h"
#include "ToolKit/Dates/SharedCalendar.h"

#include <QString>

#include <functional>

/// The days, weeks, months, quarters and years around a moment, in the shared calendar.
///
/// A moment that no calendar covers (NaN, or beyond `platform::furthestSeconds`) is returned unchanged by
/// functions that return a moment. For the others the result is false, 0 or an empty text, unless stated
/// otherwise.
///
/// The start and the end of a day enclose all of it. If clocks are put forward over a boundary, a start is
/// the first moment after the gap and an end the last second before it. If they are put back over one, it
/// occurs twice: a start is the first occurrence, an end the last. Any thread.
namespace quor::toolkit {

using platform::Date;

/// Year, month, day, hour, minute, second, weekday, weekdayOrdinal and weekOfYear. No field is set for a
/// moment that no calendar covers.
[[nodiscard]] platform::DateComponents dateComponents(Date date);

// Boundaries, in whole seconds. An end is the last second of its period.

[[nodiscard]] Date startOfYear(Date date);
[[nodiscard]] Date endOfYear(Date date);
[[nodiscard]] Date startOfQuarter(Date date);
[[nodiscard]] Date endOfQuarter(Date date);
[[nodiscard]] Date startOfMonth(Date date);
[[nodiscard]] Date endOfMonth(Date date);
/// A week begins on the calendar's first weekday.
[[nodiscard]] Date startOfWeek(Date date);
[[nodiscard]] Date endOfWeek(Date date);
[[nodiscard]] Date startOfDay(Date date);
[[nodiscard]] Date morning(Date date); ///< 09:00:00
[[nodiscard]] Date noon(Date date); ///< 12:00:00
[[nodiscard]] Date evening(Date date); ///< 18:00:00
[[nodiscard]] Date endOfDay(Date date);

// Simple values. `clock` says what time it is now.

[[nodiscard]] int quarterIndex(Date date); ///< 0 to 3
[[nodiscard]] int weekOfYear(Date date);
[[nodiscard]] bool isToday(Date date, const platform::Clock& clock = platform::SystemClock());
[[nodiscard]] bool isWeekend(Date date);
/// Whether the weekday has the lowest number, which is that of Sunday in the Gregorian calendar, even if the
/// week begins on another day.
[[nodiscard]] bool isFirstWeekdayNumber(Date date);
/// Whether the weekday has the highest number, which is that of Saturday in the Gregorian calendar.
[[nodiscard]] bool isLastWeekdayNumber(Date date);
/// Whether the moment is earlier than now; true for negative infinity.
[[nodiscard]] bool isPast(Date date, const platform::Clock& clock = platform::SystemClock());
/// Whether the second of the minute is not 0; true for a moment that no calendar covers.
[[nodiscard]] bool hasSeconds(Date date);

// Rounding of the local time. Fractions of a second are dropped. If the result occurs twice, it is the
// occurrence that is closer to `date`.

[[nodiscard]] Date roundedToMinute(Date date); ///< up from 30 seconds
[[nodiscard]] Date withoutSeconds(Date date);
[[nodiscard]] Date roundedToHour(Date date); ///< up from 30 minutes, ignoring seconds

// Comparison.

[[nodiscard]] bool isSameDay(Date date, Date as);
[[nodiscard]] bool isSameMonth(Date date, Date as);
/// Compares only the number of the week: week 5 of one year is the same as week 5 of another.
[[nodiscard]] bool isSameWeek(Date date, Date as);
[[nodiscard]] bool isSameYear(Date date, Date as);

// Counts of calendar days, weeks and months; the time of day has no effect. Negative if the other date is
// earlier.

/// The difference in days: 0 for the same day.
[[nodiscard]] int daysBetween(Date date, Date other);
/// `daysBetween` and 1, so both days are counted: 1 for the same day, 2 to the next, 0 to the day before.
[[nodiscard]] int numberOfDays(Date date, Date to);
/// The number of whole weeks from `date` to `to`, and 1.
[[nodiscard]] int numberOfWeeks(Date date, Date to);
/// The number of whole months from `date` to `to`, and 1.
[[nodiscard]] int numberOfMonths(Date date, Date to);

// Others.

/// The moment `value` intervals later, or earlier if `value` is negative, at the same time of day. January 31
/// and a month is the last day of February. A value of 0 returns `date`, also one that no calendar covers. If
/// no calendar covers the result, returns the time of `clock`.
[[nodiscard]] Date adding(Date date, qint64 value, DurationInterval interval,
    const platform::Clock& clock = platform::SystemClock());

/// Calls `handler` with the noon of each day from `date` to `to`, both included, in order. Does not call it
/// if the day of `to` is earlier. Days that the time zone skips are left out. Setting the shared calendar in
/// `handler` has no effect on this call.
void forEachDay(Date date, Date to, const std::function<void(Date)>& handler);

/// "3 days ago" or "in 2 weeks", in the user's language. Uses the largest unit of which at least one lies
/// between `date` and the time of `clock`, from years down to minutes, and drops the rest.
[[nodiscard]] QString relativeText(Date date, const platform::Clock& clock = platform::SystemClock());

/// Whether the shared calendar's locale writes hours from 1 to 12, with AM and PM.
[[nodiscard]] bool uses12HourClock();
/// "h" if `uses12HourClock()`, else "H".
[[nodiscard]] QString hourFormatSymbol();

} // namespace quor::toolkit
