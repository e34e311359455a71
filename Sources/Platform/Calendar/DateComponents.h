// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace quor::platform {

/// What a calendar calls a moment, or the span between two moments, field by field.
///
/// Numbers are the calendar's own: months count from 1, weekdays from 1 for Sunday, hours from 0.
/// Which fields are there depends on who made it; to make a moment, any may be left out, and any may
/// lie outside its usual range, as `Calendar::date` tells.
struct DateComponents {
    std::optional<int> era = std::nullopt; ///< in the Gregorian calendar 0 before Christ, 1 after
    std::optional<int> year = std::nullopt; ///< of the era, from 1
    std::optional<int> month = std::nullopt;
    std::optional<int> day = std::nullopt; ///< of the month
    std::optional<int> hour = std::nullopt; ///< 0 to 23
    std::optional<int> minute = std::nullopt;
    std::optional<int> second = std::nullopt;
    std::optional<int> weekday = std::nullopt; ///< 1 is Sunday, 7 is Saturday, wherever the week begins
    std::optional<int> weekdayOrdinal = std::nullopt; ///< the which of its weekday in the month, from 1
    std::optional<int> weekOfYear = std::nullopt;
    std::optional<int> yearForWeekOfYear
        = std::nullopt; ///< that the week counts for; counts on through all eras
    bool isLeapMonth = false; ///< the second month of this number, in the calendars that have such

    bool operator==(const DateComponents&) const = default;
};

} // namespace quor::platform
