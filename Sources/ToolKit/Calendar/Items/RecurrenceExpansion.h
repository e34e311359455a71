// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/ItemRecord.h"

#include <functional>

namespace quor::toolkit {

/// More of one series is not listed in one range.
inline constexpr std::size_t mostOccurrences = 10'000;

/// Calls `visit` with each event of the series that overlaps [start, end), and the start by which the
/// series knows it, in no order.
void expand(const EventRecord& series, Date start, Date end,
    const std::function<void(Date occurrence, const EventFields& fields)>& visit);

/// How many the rules and dates give before that moment.
[[nodiscard]] int countBefore(const EventRecord& series, Date moment);

[[nodiscard]] inline bool overlaps(Date from, Date to, Date start, Date end)
{
    return from < end && (to > start || (from == to && from >= start));
}

} // namespace quor::toolkit
