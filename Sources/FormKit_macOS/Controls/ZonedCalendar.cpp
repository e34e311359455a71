// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Controls/ZonedCalendar.h"

#include "Platform/Calendar/TimeZones.h"
#include "ToolKit/Dates/SharedCalendar.h"

using namespace Qt::StringLiterals;

namespace quor::formkit {

using platform::Calendar;
using platform::Date;

namespace {

constexpr int firstCommonEra = 1;

QTimeZone zoneNamed(const QByteArray& name)
{
    const QTimeZone zone(name);
    return zone.isValid() ? zone : platform::timeZoneOfVariable(name);
}

/// How far the clocks of `calendar` are ahead of UTC at `date`.
std::optional<std::chrono::duration<double>> offset(const Calendar& calendar, const Calendar& utc, Date date)
{
    const auto components = calendar.components(date);
    const auto asUtc = components ? utc.date(*components) : std::nullopt;
    // Both sides drop fractions of a second in the same way.
    const auto inUtc = utc.components(date);
    const auto whole = inUtc ? utc.date(*inUtc) : std::nullopt;
    return asUtc && whole ? std::optional(*asUtc - *whole) : std::nullopt;
}

} // namespace

ZonedCalendar::ZonedCalendar()
    : calendar_(toolkit::calendar())
{
    calendar_.setIdentifier("gregorian"_ba);
    calendar_.setTimeZone(zoneNamed(calendar_.timeZoneName()));
    utc_.setIdentifier("gregorian"_ba);
    utc_.setTimeZone(QTimeZone::utc());
}

bool ZonedCalendar::isCurrent() const
{
    return toolkit::calendar().timeZoneName() == calendar_.timeZoneName();
}

DateFields ZonedCalendar::fields(Date date) const
{
    const auto all = calendar_.components(date);
    if (!all)
        return {};
    // Before the first year, the fields of year 1 stand in for those that no control can show.
    const int year = all->era == firstCommonEra ? all->year.value_or(1) : 1;
    return {.year = year,
        .month = all->month.value_or(1),
        .day = all->day.value_or(1),
        .hour = all->hour.value_or(0),
        .minute = all->minute.value_or(0)};
}

Date ZonedCalendar::date(const DateFields& fields, Date previous, Skip skip) const
{
    const platform::DateComponents components{.year = fields.year,
        .month = fields.month,
        .day = fields.day,
        .hour = fields.hour,
        .minute = fields.minute};
    const auto first = calendar_.date(components, Calendar::Reading::first);
    const auto last = calendar_.date(components, Calendar::Reading::last);
    if (!first || !last)
        return previous;
    if (*last < *first) { // skipped
        constexpr std::chrono::seconds secondsOfLastMinute(59);
        return skip == Skip::forward ? *first : *last - secondsOfLastMinute;
    }
    const bool isSecond
        = *first < *last && offset(calendar_, utc_, previous) == offset(calendar_, utc_, *last);
    return isSecond ? *last : *first;
}

} // namespace quor::formkit
