// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace quor::platform {

/// A moment in the fields of a calendar, or the difference of two moments.
///
/// Months count from 1, weekdays from 1 for Sunday, hours from 0. `Calendar::components` sets all fields,
/// `Calendar::difference` only the requested ones. `Calendar::date` accepts missing fields, and values
/// outside their usual range.
struct DateComponents {
    std::optional<int> era = std::nullopt; ///< in the Gregorian calendar 0 for BC, 1 for AD
    std::optional<int> year = std::nullopt; ///< of the era, from 1
    std::optional<int> month = std::nullopt;
    std::optional<int> day = std::nullopt; ///< of the month
    std::optional<int> hour = std::nullopt; ///< 0 to 23
    std::optional<int> minute = std::nullopt;
    std::optional<int> second = std::nullopt;
    std::optional<int> weekday = std::nullopt; ///< 1 is Sunday, 7 is Saturday, in every region
    std::optional<int> weekdayOrdinal = std::nullopt; ///< 2 for the second Monday of the month
    std::optional<int> weekOfYear = std::nullopt;
    /// The year to which the week belongs. Years before the first era are 0 and below.
    std::optional<int> yearForWeekOfYear = std::nullopt;
    bool isLeapMonth = false; ///< the second month of this number, in calendars that have leap months

    bool operator==(const DateComponents&) const = default;
};

} // namespace quor::platform
