// SPDX-License-Identifier: MIT
#include "Platform/Calendar/Calendar.h"

#include "Platform/Calendar/CalendarArithmetic.h"
#include "Platform/Calendar/CalendarEngine.h"

#include <limits>
#include <string>
#include <utility>

namespace quor::platform {

namespace arithmetic = calendarArithmetic;

namespace {

Date dateOf(UDate moment)
{
    return dateFromSeconds(moment / 1000);
}

std::optional<int>& field(DateComponents& components, Calendar::Unit unit)
{
    switch (unit) {
    case Calendar::Unit::year:
        return components.year;
    case Calendar::Unit::month:
        return components.month;
    case Calendar::Unit::weekOfYear:
        return components.weekOfYear;
    case Calendar::Unit::day:
        return components.day;
    case Calendar::Unit::hour:
        return components.hour;
    case Calendar::Unit::minute:
        return components.minute;
    case Calendar::Unit::second:
        break;
    }
    return components.second;
}

/// `settings` with another value of one of them.
template <typename Settings, typename Value>
Settings changed(Settings settings, Value Settings::*setting, Value value)
{
    settings.*setting = std::move(value);
    return settings;
}

} // namespace

Calendar::Calendar()
    : engine_(std::make_shared<Engine>(Settings{}))
{
}

Calendar::~Calendar() = default;
Calendar::Calendar(const Calendar& other) = default;
Calendar::Calendar(Calendar&& other) noexcept = default;
Calendar& Calendar::operator=(const Calendar& other) = default;
Calendar& Calendar::operator=(Calendar&& other) noexcept = default;

void Calendar::set(Settings settings)
{
    engine_ = std::make_shared<Engine>(std::move(settings));
}

void Calendar::setLocale(const std::optional<QLocale>& locale)
{
    set(changed(engine_->settings(), &Settings::locale, locale));
}

void Calendar::setTimeZone(const std::optional<QTimeZone>& timeZone)
{
    set(changed(engine_->settings(), &Settings::timeZone, timeZone));
}

void Calendar::setIdentifier(const std::optional<QByteArray>& identifier)
{
    set(changed(engine_->settings(), &Settings::identifier, identifier));
}

void Calendar::setFirstWeekday(std::optional<int> weekday)
{
    set(changed(engine_->settings(), &Settings::firstWeekday, weekday));
}

void Calendar::setMinimumDaysInFirstWeek(std::optional<int> days)
{
    set(changed(engine_->settings(), &Settings::minimumDaysInFirstWeek, days));
}

QByteArray Calendar::timeZoneName() const
{
    const auto calendar = engine_->borrow();
    icu::UnicodeString name;
    if (calendar)
        calendar->getTimeZone().getID(name);
    std::string utf8;
    return QByteArray::fromStdString(name.toUTF8String(utf8));
}

int Calendar::firstWeekday() const
{
    const auto calendar = engine_->borrow();
    UErrorCode status = U_ZERO_ERROR;
    return calendar ? calendar->getFirstDayOfWeek(status) : UCAL_SUNDAY;
}

int Calendar::minimumDaysInFirstWeek() const
{
    const auto calendar = engine_->borrow();
    return calendar ? calendar->getMinimalDaysInFirstWeek() : 1;
}

std::optional<DateComponents> Calendar::components(Date date) const
{
    const auto calendar = engine_->borrow();
    const auto moment = arithmetic::milliseconds(date);
    return calendar && moment ? arithmetic::components(*calendar, *moment) : std::nullopt;
}

std::optional<Date> Calendar::date(const DateComponents& components, Reading reading) const
{
    const auto calendar = engine_->borrow();
    const auto moment = calendar ? arithmetic::compose(*calendar, components, reading) : std::nullopt;
    return moment ? std::optional(dateOf(*moment)) : std::nullopt;
}

std::optional<Date> Calendar::date(Unit unit, qint64 value, Date date) const
{
    const auto calendar = engine_->borrow();
    const auto moment = arithmetic::milliseconds(date);
    const auto reached = calendar && moment ? arithmetic::add(*calendar, unit, value, *moment) : std::nullopt;
    // ICU counts in milliseconds; the fraction below them is added back.
    return reached ? std::optional(dateOf(*reached) + (date - dateOf(*moment))) : std::nullopt;
}

std::optional<DateComponents> Calendar::difference(
    std::initializer_list<Unit> units, Date from, Date to) const
{
    const auto calendar = engine_->borrow();
    auto start = arithmetic::milliseconds(from);
    const auto end = arithmetic::milliseconds(to);
    if (!calendar || !start || !end)
        return std::nullopt;
    DateComponents result;
    for (const Unit unit : units) {
        const auto count = arithmetic::difference(*calendar, unit, *start, *end);
        if (!count || *count > std::numeric_limits<int>::max() || *count < std::numeric_limits<int>::min())
            return std::nullopt;
        field(result, unit) = static_cast<int>(*count);
        if (*count != 0)
            start = arithmetic::add(*calendar, unit, *count, *start).value_or(*start);
    }
    return result;
}

std::optional<Calendar::Range> Calendar::daysOfMonth(Date date) const
{
    const auto calendar = engine_->borrow();
    const auto moment = arithmetic::milliseconds(date);
    if (!calendar || !moment)
        return std::nullopt;
    UErrorCode status = U_ZERO_ERROR;
    // ICU computes from the first midnight of the month. If clocks skip it, the next moment must be taken.
    calendar->setSkippedWallTimeOption(UCAL_WALLTIME_NEXT_VALID);
    calendar->setTime(*moment, status);
    const int first = calendar->getActualMinimum(UCAL_DATE, status);
    const int last = calendar->getActualMaximum(UCAL_DATE, status);
    return U_SUCCESS(status) ? std::optional(Range{first, last - first + 1}) : std::nullopt;
}

Calendar::Range Calendar::weekdays() const
{
    const auto calendar = engine_->borrow();
    if (!calendar)
        return {};
    const int first = calendar->getMinimum(UCAL_DAY_OF_WEEK);
    return {first, calendar->getMaximum(UCAL_DAY_OF_WEEK) - first + 1};
}

bool Calendar::isWeekend(Date date) const
{
    const auto calendar = engine_->borrow();
    const auto moment = arithmetic::milliseconds(date);
    if (!calendar || !moment)
        return false;
    UErrorCode status = U_ZERO_ERROR;
    calendar->setTime(*moment, status);
    return U_SUCCESS(status) && calendar->isWeekend();
}

bool Calendar::isSameDay(Date first, Date second) const
{
    const auto calendar = engine_->borrow();
    const auto day = [&](Date date) {
        const auto moment = arithmetic::milliseconds(date);
        return calendar && moment ? arithmetic::julianDay(*calendar, *moment) : std::nullopt;
    };
    const auto firstDay = day(first);
    return firstDay && firstDay == day(second);
}

QString Calendar::dateFormat(const QString& skeleton) const
{
    return engine_->dateFormat(skeleton);
}

} // namespace quor::platform
