// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/ItemRecord.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

namespace quor::toolkit {

// A series is an `EventRecord` with a recurrence. An occurrence is identified by the start that follows from
// the rules or dates of the series, even after it was moved by itself.

/// The most occurrences of one series that are listed in one range.
inline constexpr std::size_t mostOccurrences = 10'000;

/// What may still be spent on the series of one file in one read. Each expansion subtracts its part. Series
/// that are expanded after the limit was reached have no occurrences but overrides. Far above the needs of a
/// large calendar, so that a malicious file neither fills the memory nor holds the others back.
struct ExpansionLimit {
    std::int64_t steps = 100'000'000; ///< see `RuleIterator::steps`
    std::size_t occurrences = 1'000'000;
};

using OccurrenceVisit = std::function<void(Date occurrence, const EventFields& fields)>;

/// Calls `visit` with each occurrence that overlaps [start, end), in no order.
void expand(
    const EventRecord& series, Date start, Date end, ExpansionLimit& limit, const OccurrenceVisit& visit);

/// Returns the fields of one occurrence, `nullopt` if the series does not have it.
[[nodiscard]] std::optional<EventFields> fieldsAt(const EventRecord& series, Date occurrence);

/// Returns the first occurrence, `nullopt` if there is none before `end`.
[[nodiscard]] std::optional<Date> firstOccurrence(const EventRecord& series, Date end = Date::max());

/// Returns the number of occurrences of the first rule before `moment`, removed ones included.
[[nodiscard]] int countBefore(const EventRecord& series, Date moment);

/// Whether an event from `from` to `to` overlaps [start, end). An event without length overlaps the range if
/// it lies in it.
[[nodiscard]] inline bool overlaps(Date from, Date to, Date start, Date end)
{
    return from < end && (to > start || (from == to && from >= start));
}

} // namespace quor::toolkit
