// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace quor::toolkit {

/// The unit of a step through a calendar. The numbers are stored in files and must not change.
enum class DurationInterval { year = 0, quarter = 1, month = 2, week = 3, day = 4 };

/// The interval with this number. Returns `nullopt` for any other number.
[[nodiscard]] constexpr std::optional<DurationInterval> durationInterval(int rawValue)
{
    const bool isKnown = rawValue >= int(DurationInterval::year) && rawValue <= int(DurationInterval::day);
    return isKnown ? std::optional(static_cast<DurationInterval>(rawValue)) : std::nullopt;
}

} // namespace quor::toolkit
