// SPDX-License-Identifier: MIT
#include "ToolKit/Dates/DateOperations.h"

#include <optional>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

using platform::DateComponents;

/// Whether a calendar covers both moments and `areEqual` is true of their components.
template <typename AreEqual>
bool isSame(Date first, Date second, const AreEqual& areEqual)
{
    const platform::Calendar common = calendar();
    const auto one = common.components(first);
    const auto other = common.components(second);
    return one && other && areEqual(*one, *other);
}

/// Years start again at 1 in each era.
bool isSameYear(const DateComponents& one, const DateComponents& other)
{
    return one.year == other.year && one.era == other.era;
}

bool isSameMonth(const DateComponents& one, const DateComponents& other)
{
    return one.month == other.month && one.isLeapMonth == other.isLeapMonth && isSameYear(one, other);
}

} // namespace

DateComponents dateComponents(Date date)
{
    DateComponents components = calendar().components(date).value_or(DateComponents());
    components.era.reset();
    components.yearForWeekOfYear.reset();
    components.isLeapMonth = false;
    return components;
}

int weekOfYear(Date date)
{
    return dateComponents(date).weekOfYear.value_or(0);
}

bool isToday(Date date, const platform::Clock& clock)
{
    return calendar().isSameDay(date, clock.now());
}

bool isWeekend(Date date)
{
    return calendar().isWeekend(date);
}

bool isFirstWeekdayNumber(Date date)
{
    const platform::Calendar common = calendar();
    const auto components = common.components(date);
    return components && components->weekday == common.weekdays().first;
}

bool isLastWeekdayNumber(Date date)
{
    const platform::Calendar common = calendar();
    const auto components = common.components(date);
    return components && components->weekday == common.weekdays().count;
}

bool isPast(Date date, const platform::Clock& clock)
{
    return date < clock.now();
}

bool hasSeconds(Date date)
{
    return dateComponents(date).second != 0;
}

bool isSameDay(Date date, Date as)
{
    return isSame(date, as, [](const DateComponents& one, const DateComponents& other) {
        return one.day == other.day && isSameMonth(one, other);
    });
}

bool isSameMonth(Date date, Date as)
{
    return isSame(date, as,
        [](const DateComponents& one, const DateComponents& other) { return isSameMonth(one, other); });
}

bool isSameWeek(Date date, Date as)
{
    return isSame(date, as, [](const DateComponents& one, const DateComponents& other) {
        return one.weekOfYear == other.weekOfYear;
    });
}

bool isSameYear(Date date, Date as)
{
    return isSame(date, as,
        [](const DateComponents& one, const DateComponents& other) { return isSameYear(one, other); });
}

bool uses12HourClock()
{
    return calendar().dateFormat(u"j"_s).contains(u'a');
}

QString hourFormatSymbol()
{
    return uses12HourClock() ? u"h"_s : u"H"_s;
}

} // namespace quor::toolkit
