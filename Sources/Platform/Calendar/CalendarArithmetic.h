// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Calendar/Calendar.h"

#include <unicode/calendar.h>

#include <optional>

/// The computations of `Calendar`, done with an ICU calendar.
///
/// An ICU calendar holds a moment and options. Each function here sets all that it needs and leaves the
/// calendar in an unspecified state. Moments are whole milliseconds since 1970, as in ICU. Every function
/// returns `nullopt` if its result is further than `furthestSeconds` from 1970.
namespace quor::platform::calendarArithmetic {

/// The milliseconds since 1970, rounded down. Returns `nullopt` for NaN and for a moment out of range.
[[nodiscard]] std::optional<UDate> milliseconds(Date date);

[[nodiscard]] std::optional<DateComponents> components(icu::Calendar& calendar, UDate moment);

/// The number of the local day that contains the moment, counted from 4713 BC.
[[nodiscard]] std::optional<int> julianDay(icu::Calendar& calendar, UDate moment);

/// See `Calendar::date`.
[[nodiscard]] std::optional<UDate> compose(
    icu::Calendar& calendar, const DateComponents& components, Calendar::Reading reading);

/// See `Calendar::date`.
[[nodiscard]] std::optional<UDate> add(
    icu::Calendar& calendar, Calendar::Unit unit, qint64 value, UDate moment);

/// How many units can be added to `from` without passing `to`; negative or 0 if `to` is the earlier.
[[nodiscard]] std::optional<qint64> difference(
    icu::Calendar& calendar, Calendar::Unit unit, UDate from, UDate to);

} // namespace quor::platform::calendarArithmetic
