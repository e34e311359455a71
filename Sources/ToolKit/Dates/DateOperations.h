// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Clock.h"
#include "ToolKit/Dates/DurationInterval.h"
#include "ToolKit/Dates/SharedCalendar.h"

#include <QString>

#include <functional>

/// The days, weeks, months, quarters and years around a moment, in the shared calendar.
///
/// Moments without a place in the calendar (NaN, infinite, 250,000 years away) come back as they are
/// from what gives a moment, and give false, 0 or an empty text elsewhere, unless told otherwise. Where
/// clocks are put forward over a boundary, a start is the first moment after the gap and an end the
/// last second before it; where they are put back over one, a start is the first of the two and an end
/// the last: a day's start and end enclose all of it, without holes. Any thread.
namespace quor::toolkit {

using platform::Date;

/// Year, month, day, hour, minute, second, weekday, weekdayOrdinal and weekOfYear; no field at all for
/// a moment without a place in the calendar.
[[nodiscard]] platform::DateComponents dateComponents(Date date);

// Boundaries. Whole seconds; the ends are the last second.

[[nodiscard]] Date startOfYear(Date date);
[[nodiscard]] Date endOfYear(Date date);
[[nodiscard]] Date startOfQuarter(Date date);
[[nodiscard]] Date endOfQuarter(Date date);
[[nodiscard]] Date startOfMonth(Date date);
[[nodiscard]] Date endOfMonth(Date date);
/// Weeks begin on the calendar's first weekday.
[[nodiscard]] Date startOfWeek(Date date);
[[nodiscard]] Date endOfWeek(Date date);
[[nodiscard]] Date startOfDay(Date date);
[[nodiscard]] Date morning(Date date); ///< 09:00:00
[[nodiscard]] Date noon(Date date); ///< 12:00:00
[[nodiscard]] Date evening(Date date); ///< 18:00:00
[[nodiscard]] Date endOfDay(Date date);

// Simple values. Those that need the present take it from `clock`.

[[nodiscard]] int quarterIndex(Date date); ///< 0 to 3
[[nodiscard]] int weekOfYear(Date date);
[[nodiscard]] bool isToday(Date date, const platform::Clock& clock = platform::SystemClock());
[[nodiscard]] bool isWeekend(Date date);
/// By the number of the weekday alone, whatever the week begins with: Sunday, in the Gregorian calendar.
[[nodiscard]] bool isFirstWeekdayNumber(Date date);
/// Saturday, in the Gregorian calendar.
[[nodiscard]] bool isLastWeekdayNumber(Date date);
/// Also of an infinite moment.
[[nodiscard]] bool isPast(Date date, const platform::Clock& clock = platform::SystemClock());
/// True for a moment without a place in the calendar.
[[nodiscard]] bool hasSeconds(Date date);

// Rounding, by what the clock shows. Fractions of a second are cut. In an hour that comes twice the
// result stays on its side.

[[nodiscard]] Date roundedToMinute(Date date); ///< from 30 seconds on, up
[[nodiscard]] Date withoutSeconds(Date date);
[[nodiscard]] Date roundedToHour(Date date); ///< from 30 minutes on, up, whatever the seconds

// Comparison.

[[nodiscard]] bool isSameDay(Date date, Date as);
[[nodiscard]] bool isSameMonth(Date date, Date as);
/// By the number of the week alone: week 5 of two years counts as the same.
[[nodiscard]] bool isSameWeek(Date date, Date as);
[[nodiscard]] bool isSameYear(Date date, Date as);

// Counts. Negative where the other date lies before; hours never count.

/// 0 on the same day.
[[nodiscard]] int daysBetween(Date date, Date other);
/// Both days included: 1 on the same day, 2 to the next, 0 to the day before.
[[nodiscard]] int numberOfDays(Date date, Date to);
/// Whole weeks that fit between, and 1.
[[nodiscard]] int numberOfWeeks(Date date, Date to);
/// Whole months that fit between, and 1.
[[nodiscard]] int numberOfMonths(Date date, Date to);

// Others.

/// So many intervals later, or earlier for a negative value, at the same time of day; January 31 and a
/// month is the last day of February. A value of 0 gives `date`, whatever it is; a result beyond the
/// calendar is the present.
[[nodiscard]] Date adding(Date date, qint64 value, DurationInterval interval,
    const platform::Clock& clock = platform::SystemClock());

/// Hands over the noon of each day from `date` to `to`, both included, in order; nothing where `to` is
/// on an earlier day. A day that the time zone left out is left out. The calendar is that at the call.
void forEachDay(Date date, Date to, const std::function<void(Date)>& handler);

/// "3 days ago", "in 2 weeks", in the user's language: in the largest unit of which a whole one lies
/// between `date` and the present, minutes at least, the rest cut.
[[nodiscard]] QString relativeText(Date date, const platform::Clock& clock = platform::SystemClock());

/// Whether the shared calendar's locale writes hours from 1 to 12, with AM and PM.
[[nodiscard]] bool uses12HourClock();
/// "h" where it does, else "H".
[[nodiscard]] QString hourFormatSymbol();

} // namespace quor::toolkit
