// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/ItemRecord.h"

#include <functional>
#include <optional>

namespace quor::toolkit {

// A series is an `EventRecord` with a recurrence. An occurrence is identified by the start that follows from
// the rules or dates of the series, even after it was moved by itself.

/// The most occurrences of one series that are listed in one range.
inline constexpr std::size_t mostOccurrences = 10'000;

/// Calls `visit` with each occurrence that overlaps [start, end), in no order.
void expand(const EventRecord& series, Date start, Date end,
    const std::function<void(Date occurrence, const EventFields& fields)>& visit);

/// Returns the fields of one occurrence, `nullopt` if the series does not have it.
[[nodiscard]] std::optional<EventFields> fieldsAt(const EventRecord& series, Date occurrence);

/// Returns the number of occurrences of the first rule before `moment`, removed ones included.
[[nodiscard]] int countBefore(const EventRecord& series, Date moment);

/// Whether an event from `from` to `to` overlaps [start, end). An event without length overlaps the range if
/// it lies in it.
[[nodiscard]] inline bool overlaps(Date from, Date to, Date start, Date end)
{
    return from < end && (to > start || (from == to && from >= start));
}

} // namespace quor::toolkit
