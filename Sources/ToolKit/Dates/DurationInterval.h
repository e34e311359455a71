// SPDX-License-Identifier: MIT
#pragma once

#include <optional>

namespace quor::toolkit {

/// The steps in which a calendar is gone through. The numbers are kept in files: never change them.
enum class DurationInterval { year = 0, quarter = 1, month = 2, week = 3, day = 4 };

/// The interval of this number, if one has it.
[[nodiscard]] constexpr std::optional<DurationInterval> durationInterval(int rawValue)
{
    const bool isKnown = rawValue >= int(DurationInterval::year) && rawValue <= int(DurationInterval::day);
    return isKnown ? std::optional(static_cast<DurationInterval>(rawValue)) : std::nullopt;
}

} // namespace quor::toolkit
