// SPDX-License-Identifier: MIT
#include "Platform/Calendar/CalendarArithmetic.h"

#include <unicode/gregocal.h>

#include <cmath>
#include <cstdlib>

namespace quor::platform::calendarArithmetic {

namespace {

using Reading = Calendar::Reading;
using Unit = Calendar::Unit;

constexpr double secondLength = 1000;
constexpr double dayLength = 86'400 * secondLength;
constexpr double furthest = furthestSeconds * secondLength;

struct UnitFacts {
    UCalendarDateFields field;
    double shortest; ///< the least length in milliseconds, roughly
    bool isSpan; ///< always has the same length
};

UnitFacts facts(Unit unit)
{
    switch (unit) {
    case Unit::year:
        return {UCAL_EXTENDED_YEAR, 350 * dayLength, false}; // continues through the eras
    case Unit::month:
        return {UCAL_MONTH, 28 * dayLength, false};
    case Unit::weekOfYear:
        return {UCAL_WEEK_OF_YEAR, 7 * dayLength, false};
    case Unit::day:
        return {UCAL_DATE, dayLength, false};
    case Unit::hour:
        return {UCAL_HOUR_OF_DAY, 3600 * secondLength, true};
    case Unit::minute:
        return {UCAL_MINUTE, 60 * secondLength, true};
    case Unit::second:
        break;
    }
    return {UCAL_SECOND, secondLength, true};
}

std::optional<UDate> inRange(UDate moment)
{
    return std::fabs(moment) <= furthest ? std::optional(moment) : std::nullopt;
}

std::optional<UDate> time(icu::Calendar& calendar)
{
    UErrorCode status = U_ZERO_ERROR;
    const UDate moment = calendar.getTime(status);
    return U_SUCCESS(status) ? inRange(moment) : std::nullopt;
}

/// Sets those fields that have values. Values so large that they lead out of the range are refused, since ICU
/// computes with plain integers, which would overflow.
class FieldSetter final {
public:
    explicit FieldSetter(icu::Calendar& calendar)
        : calendar_(calendar)
    {
    }

    void set(UCalendarDateFields field, std::optional<int> value, int largest, int offset = 0)
    {
        if (!value)
            return;
        isSafe_ = isSafe_ && *value <= largest && *value >= -largest;
        if (isSafe_)
            calendar_.set(field, *value + offset);
    }
    /// ICU computes times of day with doubles.
    void setTime(UCalendarDateFields field, std::optional<int> value)
    {
        calendar_.set(field, value.value_or(0));
    }

    [[nodiscard]] bool isSafe() const { return isSafe_; }

private:
    icu::Calendar& calendar_;
    bool isSafe_ = true;
};

constexpr int mostEras = 10'000; // some calendars count cycles of 60 years
constexpr int mostYears = 600'000;
constexpr int mostMonths = 14 * mostYears;
constexpr int mostWeeks = 53 * mostYears;
constexpr int mostDays = 366 * mostYears;

/// Sets the fields of only one way to name a day. If the fields of several are set, ICU uses those that were
/// set last.
bool setDay(icu::Calendar& calendar, const DateComponents& components)
{
    FieldSetter fields(calendar);
    const bool isWithinMonth = components.day || (components.weekdayOrdinal && components.weekday);
    fields.set(UCAL_ERA, components.era, mostEras);
    if (!isWithinMonth && components.weekOfYear) {
        const auto year = components.yearForWeekOfYear ? components.yearForWeekOfYear : components.year;
        fields.set(UCAL_YEAR_WOY, year, mostYears);
        fields.set(UCAL_WEEK_OF_YEAR, components.weekOfYear, mostWeeks);
        fields.set(UCAL_DAY_OF_WEEK, components.weekday, mostDays);
        return fields.isSafe() && year;
    }
    fields.set(UCAL_YEAR, components.year, mostYears);
    fields.set(UCAL_MONTH, components.month.value_or(1), mostMonths, -1);
    if (components.isLeapMonth)
        fields.set(UCAL_IS_LEAP_MONTH, 1, 1);
    if (isWithinMonth && !components.day) {
        fields.set(UCAL_DAY_OF_WEEK, components.weekday, mostDays);
        fields.set(UCAL_DAY_OF_WEEK_IN_MONTH, components.weekdayOrdinal, mostWeeks);
    } else {
        fields.set(UCAL_DATE, components.day.value_or(1), mostDays);
    }
    return fields.isSafe() && components.year;
}

/// The moment of the fields that are set. `skipped` decides about times of day that clocks skip.
std::optional<UDate> timeOfFields(icu::Calendar& calendar, UCalendarWallTimeOption skipped)
{
    calendar.setSkippedWallTimeOption(skipped);
    calendar.set(UCAL_MILLISECOND, 0); // makes ICU compute the moment again
    return time(calendar);
}

/// An estimate of `difference`: never too small, too large by a few at most.
std::optional<qint64> roughDifference(icu::Calendar& calendar, Unit unit, UDate from, UDate to)
{
    const UnitFacts unitFacts = facts(unit);
    const int direction = from <= to ? 1 : -1;
    if (unitFacts.isSpan)
        return static_cast<qint64>((to - from) / unitFacts.shortest);
    // Clocks change by less than half a day. A day that a zone left out at the date line does not exist for
    // ICU.
    if (unit == Unit::day || unit == Unit::weekOfYear)
        return static_cast<qint64>((to - from + direction * dayLength / 2) / unitFacts.shortest);
    UErrorCode status = U_ZERO_ERROR;
    if (dynamic_cast<const icu::GregorianCalendar*>(&calendar) != nullptr) {
        const auto count = [&](UDate moment) {
            calendar.setTime(moment, status);
            const qint64 year = calendar.get(UCAL_EXTENDED_YEAR, status);
            return unit == Unit::year ? year : 12 * year + calendar.get(UCAL_MONTH, status);
        };
        const qint64 result = count(to) - count(from);
        return U_SUCCESS(status) ? std::optional(result) : std::nullopt;
    }
    // Years of twelve or thirteen months: ICU searches by bisection.
    calendar.setSkippedWallTimeOption(UCAL_WALLTIME_LAST);
    calendar.setTime(from, status);
    const int result = calendar.fieldDifference(to, unitFacts.field, status);
    return U_SUCCESS(status) ? std::optional<qint64>(result) : std::nullopt;
}

} // namespace

std::optional<UDate> milliseconds(Date date)
{
    const double seconds = secondsSince1970(date);
    return std::fabs(seconds) <= furthestSeconds ? std::optional(std::floor(seconds * secondLength))
                                                 : std::nullopt;
}

std::optional<DateComponents> components(icu::Calendar& calendar, UDate moment)
{
    UErrorCode status = U_ZERO_ERROR;
    calendar.setTime(moment, status);
    const auto get = [&](UCalendarDateFields field) { return calendar.get(field, status); };
    DateComponents components{
        .era = get(UCAL_ERA),
        .year = get(UCAL_YEAR),
        .month = get(UCAL_MONTH) + 1,
        .day = get(UCAL_DATE),
        .hour = get(UCAL_HOUR_OF_DAY),
        .minute = get(UCAL_MINUTE),
        .second = get(UCAL_SECOND),
        .weekday = get(UCAL_DAY_OF_WEEK),
        .weekdayOrdinal = get(UCAL_DAY_OF_WEEK_IN_MONTH),
        .weekOfYear = get(UCAL_WEEK_OF_YEAR),
        .yearForWeekOfYear = get(UCAL_YEAR_WOY),
        .isLeapMonth = get(UCAL_IS_LEAP_MONTH) != 0,
    };
    return U_SUCCESS(status) ? std::optional(components) : std::nullopt;
}

std::optional<int> julianDay(icu::Calendar& calendar, UDate moment)
{
    UErrorCode status = U_ZERO_ERROR;
    calendar.setTime(moment, status);
    const int day = calendar.get(UCAL_JULIAN_DAY, status);
    return U_SUCCESS(status) ? std::optional(day) : std::nullopt;
}

std::optional<UDate> compose(icu::Calendar& calendar, const DateComponents& components, Reading reading)
{
    calendar.clear();
    if (!setDay(calendar, components))
        return std::nullopt;
    FieldSetter fields(calendar);
    fields.setTime(UCAL_HOUR_OF_DAY, components.hour);
    fields.setTime(UCAL_MINUTE, components.minute);
    fields.setTime(UCAL_SECOND, components.second);
    if (reading == Reading::first) {
        calendar.setRepeatedWallTimeOption(UCAL_WALLTIME_FIRST);
        return timeOfFields(calendar, UCAL_WALLTIME_NEXT_VALID);
    }
    calendar.setRepeatedWallTimeOption(UCAL_WALLTIME_LAST);
    const auto found = timeOfFields(calendar, UCAL_WALLTIME_LAST);
    // The two options differ only for a skipped time.
    if (timeOfFields(calendar, UCAL_WALLTIME_FIRST) == found)
        return found;
    const auto afterGap = timeOfFields(calendar, UCAL_WALLTIME_NEXT_VALID);
    return afterGap ? inRange(*afterGap - secondLength) : std::nullopt;
}

std::optional<UDate> add(icu::Calendar& calendar, Unit unit, qint64 value, UDate moment)
{
    const UnitFacts unitFacts = facts(unit);
    if (std::fabs(double(value)) * unitFacts.shortest > 2 * furthest)
        return std::nullopt;
    if (unitFacts.isSpan)
        return inRange(moment + double(value) * unitFacts.shortest);
    UErrorCode status = U_ZERO_ERROR;
    calendar.setRepeatedWallTimeOption(UCAL_WALLTIME_FIRST);
    calendar.setSkippedWallTimeOption(UCAL_WALLTIME_LAST);
    calendar.setTime(moment, status);
    calendar.add(unitFacts.field, static_cast<int32_t>(value), status);
    return U_SUCCESS(status) ? time(calendar) : std::nullopt;
}

std::optional<qint64> difference(icu::Calendar& calendar, Unit unit, UDate from, UDate to)
{
    const auto rough = roughDifference(calendar, unit, from, to);
    if (!rough || facts(unit).isSpan)
        return rough;
    qint64 count = *rough;
    const int direction = from <= to ? 1 : -1;
    const auto passes = [&](qint64 value) {
        const auto reached = add(calendar, unit, value, from);
        return !reached || (direction > 0 ? *reached > to : *reached < to);
    };
    while (count != 0 && passes(count))
        count -= direction;
    return count;
}

} // namespace quor::platform::calendarArithmetic
