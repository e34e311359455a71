// SPDX-License-Identifier: MIT
#include "ToolKit/Dates/DateOperations.h"

#include <cmath>

namespace quor::toolkit {

namespace {

using platform::Calendar;
using platform::DateComponents;
using Reading = Calendar::Reading;

/// `date` with the components that `change` sets. Returns `date` if no calendar covers it or the result.
template <typename Change>
Date changed(const Calendar& calendar, Date date, Reading reading, const Change& change)
{
    auto components = calendar.components(date);
    if (!components)
        return date;
    change(*components);
    return calendar.date(*components, reading).value_or(date);
}

void setTime(DateComponents& components, int hour, int minuteAndSecond)
{
    components.hour = hour;
    components.minute = minuteAndSecond;
    components.second = minuteAndSecond;
}

void setMonth(DateComponents& components, int month, int day)
{
    components.month = month;
    components.isLeapMonth = false;
    components.day = day;
}

Date timeOfYear(Date date, int month, int day, int hour, int minuteAndSecond, Reading reading)
{
    return changed(calendar(), date, reading, [&](DateComponents& components) {
        setMonth(components, month, day);
        setTime(components, hour, minuteAndSecond);
    });
}

Date timeOfDay(Date date, int hour, int minuteAndSecond = 0, Reading reading = Reading::first)
{
    return changed(calendar(), date, reading,
        [&](DateComponents& components) { setTime(components, hour, minuteAndSecond); });
}

int quarter(const DateComponents& components)
{
    return (components.month.value_or(1) - 1) / 3;
}

/// Like `changed`. If the resulting time occurs twice, returns the occurrence that is closer to `date`.
template <typename Change>
Date rounded(Date date, const Change& change)
{
    const Calendar common = calendar();
    const Date first = changed(common, date, Reading::first, change);
    const Date last = changed(common, date, Reading::last, change);
    return last > first && last - date < date - first ? last : first;
}

} // namespace

Date startOfYear(Date date)
{
    return timeOfYear(date, 1, 1, 0, 0, Reading::first);
}

Date endOfYear(Date date)
{
    return timeOfYear(date, 12, 31, 23, 59, Reading::last);
}

Date startOfQuarter(Date date)
{
    return changed(calendar(), date, Reading::first, [](DateComponents& components) {
        setMonth(components, quarter(components) * 3 + 1, 1);
        setTime(components, 0, 0);
    });
}

Date endOfQuarter(Date date)
{
    return changed(calendar(), date, Reading::last, [](DateComponents& components) {
        setMonth(components, (quarter(components) + 1) * 3 + 1, 0);
        setTime(components, 23, 59);
    });
}

Date startOfMonth(Date date)
{
    return changed(calendar(), date, Reading::first, [](DateComponents& components) {
        components.day = 1;
        setTime(components, 0, 0);
    });
}

Date endOfMonth(Date date)
{
    const Calendar common = calendar();
    return changed(common, date, Reading::last, [&](DateComponents& components) {
        if (const auto days = common.daysOfMonth(date))
            components.day = days->first + days->count - 1;
        setTime(components, 23, 59);
    });
}

Date startOfWeek(Date date)
{
    return changed(calendar(), date, Reading::first, [](DateComponents& components) {
        components = {.weekOfYear = components.weekOfYear, .yearForWeekOfYear = components.yearForWeekOfYear};
    });
}

Date endOfWeek(Date date)
{
    return changed(calendar(), startOfWeek(date), Reading::last, [](DateComponents& components) {
        components.day = components.day.value_or(1) + 6;
        setTime(components, 23, 59);
    });
}

Date startOfDay(Date date)
{
    return timeOfDay(date, 0);
}

Date morning(Date date)
{
    return timeOfDay(date, 9);
}

Date noon(Date date)
{
    return timeOfDay(date, 12);
}

Date evening(Date date)
{
    return timeOfDay(date, 18);
}

Date endOfDay(Date date)
{
    return timeOfDay(date, 23, 59, Reading::last);
}

Date roundedToMinute(Date date)
{
    return rounded(date, [](DateComponents& components) {
        components.second = static_cast<int>(std::lround(components.second.value_or(0) / 60.0)) * 60;
    });
}

Date withoutSeconds(Date date)
{
    return rounded(date, [](DateComponents& components) { components.second = 0; });
}

Date roundedToHour(Date date)
{
    return rounded(date, [](DateComponents& components) {
        components.minute = components.minute.value_or(0) < 30 ? 0 : 60;
        components.second = 0;
    });
}

int quarterIndex(Date date)
{
    return quarter(dateComponents(date));
}

} // namespace quor::toolkit
