// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Calendar/Calendar.h"

#include <unicode/calendar.h>

#include <optional>

/// What `Calendar` does, on one of ICU's.
///
/// ICU's calendars hold a moment, so each call sets all that it needs and leaves something behind.
/// Moments are whole milliseconds since 1970, as ICU counts them. Results out of range are absent.
namespace quor::platform::calendarArithmetic {

/// Absent where the moment has no place in a calendar.
[[nodiscard]] std::optional<UDate> milliseconds(Date date);

[[nodiscard]] std::optional<DateComponents> components(icu::Calendar& calendar, UDate moment);

/// The number of the moment's day in the calendar's time zone, counted from 4713 BC.
[[nodiscard]] std::optional<int> julianDay(icu::Calendar& calendar, UDate moment);

[[nodiscard]] std::optional<UDate> compose(
    icu::Calendar& calendar, const DateComponents& components, Calendar::Reading reading);

[[nodiscard]] std::optional<UDate> add(
    icu::Calendar& calendar, Calendar::Unit unit, qint64 value, UDate moment);

/// How often the unit can be added to `from` without passing `to`.
[[nodiscard]] std::optional<qint64> difference(
    icu::Calendar& calendar, Calendar::Unit unit, UDate from, UDate to);

} // namespace quor::platform::calendarArithmetic
