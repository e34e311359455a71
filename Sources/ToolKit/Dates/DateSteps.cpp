// SPDX-License-Identifier: MIT
#include "ToolKit/Dates/DateOperations.h"

#include <chrono>
#include <optional>

namespace quor::toolkit {

namespace {

using platform::Calendar;
using Unit = Calendar::Unit;

std::optional<Date> noonOf(const Calendar& calendar, Date date)
{
    auto components = calendar.components(date);
    if (!components)
        return std::nullopt;
    components->hour = 12;
    components->minute = 0;
    components->second = 0;
    return calendar.date(*components);
}

/// If clocks skip a noon, `noonOf` is later by the gap. Without this margin the day would not be counted.
constexpr std::chrono::hours longestGap{3};

/// Counts from noon to noon, since the start of a day can be later than midnight, which would lose a day.
std::optional<int> difference(
    Unit unit, Date date, Date other, std::optional<int> platform::DateComponents::*field)
{
    const Calendar common = calendar();
    const auto from = noonOf(common, date);
    const auto to = noonOf(common, other);
    if (!from || !to)
        return std::nullopt;
    const bool isLate = date < other && common.components(*from)->hour != 12;
    const auto found = common.difference({unit}, *from, isLate ? *to + longestGap : *to);
    return found ? (*found).*field : std::nullopt;
}

int inclusive(std::optional<int> difference)
{
    return difference ? *difference + 1 : 0;
}

} // namespace

int daysBetween(Date date, Date other)
{
    return difference(Unit::day, date, other, &platform::DateComponents::day).value_or(0);
}

int numberOfDays(Date date, Date to)
{
    return inclusive(difference(Unit::day, date, to, &platform::DateComponents::day));
}

int numberOfWeeks(Date date, Date to)
{
    return inclusive(difference(Unit::weekOfYear, date, to, &platform::DateComponents::weekOfYear));
}

int numberOfMonths(Date date, Date to)
{
    return inclusive(difference(Unit::month, date, to, &platform::DateComponents::month));
}

Date adding(Date date, qint64 value, DurationInterval interval, const platform::Clock& clock)
{
    if (value == 0)
        return date;
    const auto add = [&](Unit unit, qint64 factor) {
        // Further than any calendar reaches, but small enough that no product overflows.
        constexpr qint64 most = qint64(1) << 40;
        const bool isNear = value <= most && value >= -most;
        const auto reached = isNear ? calendar().date(unit, value * factor, date) : std::nullopt;
        return reached ? *reached : clock.now();
    };
    switch (interval) {
    case DurationInterval::year:
        return add(Unit::year, 1);
    case DurationInterval::quarter:
        return add(Unit::month, 3);
    case DurationInterval::month:
        return add(Unit::month, 1);
    case DurationInterval::week:
        return add(Unit::day, 7);
    case DurationInterval::day:
        return add(Unit::day, 1);
    }
    return clock.now();
}

void forEachDay(Date date, Date to, const std::function<void(Date)>& handler)
{
    const Calendar common = calendar();
    auto current = noonOf(common, date);
    const auto last = noonOf(common, to);
    if (!handler || !last)
        return;
    while (current && *current < *last + longestGap) {
        handler(*current);
        const auto next = common.date(Unit::day, 1, *current);
        const auto noon = next ? noonOf(common, *next) : std::nullopt;
        current = noon && *noon > *current ? noon : next; // a noon can be skipped, or occur twice
    }
}

} // namespace quor::toolkit
