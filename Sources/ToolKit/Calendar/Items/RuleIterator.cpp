// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Items/RuleIterator.h"

#include <algorithm>
#include <span>
#include <utility>

namespace quor::toolkit {

using std::chrono::days;
using std::chrono::floor;
using std::chrono::local_days;
using std::chrono::local_seconds;
using std::chrono::months;
using std::chrono::seconds;
using std::chrono::year;
using std::chrono::year_month_day;
using std::chrono::years;

namespace {

// The calendar repeats after 400 years, which have 146,097 days. A rule that matches none of them never will.
constexpr std::int64_t mostStepsWithoutStart = 150'000;
constexpr local_seconds endOfTime = local_days(year(9999) / 12 / 31) + seconds(86'399);

std::vector<int> numbers(std::span<const short> values)
{
    // A full list has no end mark.
    return {values.begin(), std::ranges::find(values, ICAL_RECURRENCE_ARRAY_MAX)};
}

std::vector<int> timesOfDay(std::span<const short> values, int largest)
{
    std::vector<int> sorted = numbers(values);
    for (int& each : sorted)
        each = std::min(each, largest); // a leap second
    std::ranges::sort(sorted);
    sorted.erase(std::unique(sorted.begin(), sorted.end()), sorted.end());
    return sorted;
}

std::int64_t divideDown(std::int64_t dividend, std::int64_t divisor)
{
    const std::int64_t quotient = dividend / divisor;
    return quotient * divisor > dividend ? quotient - 1 : quotient;
}

std::int64_t number(local_days day)
{
    return day.time_since_epoch().count();
}

int count(std::chrono::local_days from, std::chrono::local_days to)
{
    return int((to - from).count());
}

int secondsIn(icalrecurrencetype_frequency frequency)
{
    return frequency == ICAL_SECONDLY_RECURRENCE ? 1 : frequency == ICAL_MINUTELY_RECURRENCE ? 60 : 3600;
}

unsigned weekdayOf(local_days day)
{
    return std::chrono::weekday(day).c_encoding();
}

/// Whether `position` is the place, counted from 1, or the same place counted from the end, from -1.
bool isPlace(int position, int place, int length)
{
    constexpr int week = 7;
    return position > 0 ? position == (place - 1) / week + 1 : position == -((length - place) / week + 1);
}

} // namespace

RuleIterator::RuleIterator(const icalrecurrencetype& rule, local_seconds first, bool isDate)
    : frequency_(rule.freq)
    , interval_(std::max<std::int64_t>(rule.interval, 1))
    , weekStart_(rule.week_start == ICAL_NO_WEEKDAY ? 1 : rule.week_start - ICAL_SUNDAY_WEEKDAY)
    , first_(first)
    , last_(endOfTime)
    , positions_(numbers(rule.by_set_pos))
{
    if (rule.count > 0)
        remaining_ = rule.count;
    readDays(rule);
    if (!isDate)
        readTimes(rule);
    useLargestFrequency();
    addDefaults();
    period_ = periodOf(first_);
}

void RuleIterator::readDays(const icalrecurrencetype& rule)
{
    for (const int each : numbers(rule.by_month))
        months_.insert(each);
    for (const int each : numbers(rule.by_month_day))
        monthDays_.insert(each);
    for (const int each : numbers(rule.by_year_day))
        yearDays_.insert(each);
    for (const int each : numbers(rule.by_week_no))
        weeks_.insert(each);
    for (const int each : numbers(rule.by_day)) {
        const auto code = short(each);
        const auto weekday = unsigned(icalrecurrencetype_day_day_of_week(code) - ICAL_SUNDAY_WEEKDAY);
        const int position = icalrecurrencetype_day_position(code);
        if (position == 0 || frequency_ < ICAL_MONTHLY_RECURRENCE)
            weekdays_.set(weekday);
        else
            numberedWeekdays_.push_back({position, weekday});
    }
}

void RuleIterator::readTimes(const icalrecurrencetype& rule)
{
    hours_ = timesOfDay(rule.by_hour, 23);
    minutes_ = timesOfDay(rule.by_minute, 59);
    seconds_ = timesOfDay(rule.by_second, 59);
}

/// "Each second that is second 30" is "at second 30 of each minute", which has fewer periods.
void RuleIterator::useLargestFrequency()
{
    if (interval_ != 1 || !positions_.empty())
        return;
    if (frequency_ == ICAL_SECONDLY_RECURRENCE && !seconds_.empty())
        frequency_ = ICAL_MINUTELY_RECURRENCE;
    if (frequency_ == ICAL_MINUTELY_RECURRENCE && !minutes_.empty())
        frequency_ = ICAL_HOURLY_RECURRENCE;
    if (frequency_ == ICAL_HOURLY_RECURRENCE && !hours_.empty())
        frequency_ = ICAL_DAILY_RECURRENCE;
}

/// What the rule leaves open follows from the start of the series.
void RuleIterator::addDefaults()
{
    const auto day = floor<days>(first_);
    const year_month_day date(day);
    const std::chrono::hh_mm_ss time(first_ - day);
    if (hours_.empty() && frequency_ > ICAL_HOURLY_RECURRENCE)
        hours_ = {int(time.hours().count())};
    if (minutes_.empty() && frequency_ > ICAL_MINUTELY_RECURRENCE)
        minutes_ = {int(time.minutes().count())};
    if (seconds_.empty() && frequency_ > ICAL_SECONDLY_RECURRENCE)
        seconds_ = {int(time.seconds().count())};
    if (!monthDays_.isEmpty() || !yearDays_.isEmpty() || weekdays_.any() || !numberedWeekdays_.empty())
        return;
    const bool isYearly = frequency_ == ICAL_YEARLY_RECURRENCE;
    if (frequency_ == ICAL_WEEKLY_RECURRENCE || (isYearly && !weeks_.isEmpty())) {
        weekdays_.set(weekdayOf(day));
    } else if (frequency_ == ICAL_MONTHLY_RECURRENCE || isYearly) {
        monthDays_.insert(int(unsigned(date.day())));
        if (isYearly && months_.isEmpty())
            months_.insert(int(unsigned(date.month())));
    }
}

std::int64_t RuleIterator::periodOf(local_seconds moment) const
{
    const auto day = floor<days>(moment);
    const year_month_day date(day);
    switch (frequency_) {
    case ICAL_YEARLY_RECURRENCE:
        return int(date.year());
    case ICAL_MONTHLY_RECURRENCE:
        return int(date.year()) * std::int64_t(12) + unsigned(date.month()) - 1;
    case ICAL_WEEKLY_RECURRENCE:
        return divideDown(number(day) + std::chrono::Thursday.c_encoding() - weekStart_, 7);
    case ICAL_DAILY_RECURRENCE:
        return number(day);
    case ICAL_HOURLY_RECURRENCE:
    case ICAL_MINUTELY_RECURRENCE:
    case ICAL_SECONDLY_RECURRENCE:
    case ICAL_NO_RECURRENCE:
        break;
    }
    return divideDown(moment.time_since_epoch().count(), secondsIn(frequency_));
}

/// For periods of at least a day.
local_days RuleIterator::periodStart(std::int64_t period) const
{
    if (frequency_ == ICAL_YEARLY_RECURRENCE)
        return local_days(year(int(period)) / 1 / 1);
    if (frequency_ == ICAL_MONTHLY_RECURRENCE)
        return local_days(year(0) / 1 / 1 + months(int(period)));
    if (frequency_ == ICAL_WEEKLY_RECURRENCE)
        return local_days(days(period * 7 - std::chrono::Thursday.c_encoding() + weekStart_));
    return local_days(days(period));
}

/// Goes to the first period of the rule that does not end before that moment.
void RuleIterator::skipPeriodsBefore(local_seconds moment)
{
    const std::int64_t distance = periodOf(moment) - period_;
    if (distance > 0)
        period_ += (distance + interval_ - 1) / interval_ * interval_;
}

void RuleIterator::restrictTo(local_seconds from, local_seconds to)
{
    last_ = std::min(last_, to);
    if (!remaining_ && from > first_)
        skipPeriodsBefore(std::min(from, endOfTime));
}

std::optional<local_seconds> RuleIterator::next()
{
    if (last_ < first_)
        return std::nullopt;
    const std::int64_t lastPeriod = periodOf(last_);
    while (steps_ < mostSteps && steps_ - stepsToLastStart_ < mostStepsWithoutStart) {
        if (index_ == count_) {
            if (period_ > lastPeriod)
                return std::nullopt;
            enterPeriod();
            continue;
        }
        ++steps_;
        const local_seconds start = candidate(index_++);
        if (start < first_)
            continue;
        if (start > last_ || (remaining_ && (*remaining_)-- == 0))
            return std::nullopt;
        stepsToLastStart_ = steps_;
        return start;
    }
    return std::nullopt;
}

void RuleIterator::enterPeriod()
{
    index_ = count_ = 0;
    days_.clear();
    if (frequency_ <= ICAL_HOURLY_RECURRENCE) {
        enterPeriodWithinDay();
        return;
    }
    addDays(periodStart(period_), periodStart(period_ + 1));
    periodHours_ = hours_;
    periodMinutes_ = minutes_;
    periodSeconds_ = seconds_;
    chooseCandidates();
    period_ += interval_;
}

void RuleIterator::enterPeriodWithinDay()
{
    const local_seconds start(seconds(period_ * secondsIn(frequency_)));
    const auto day = floor<days>(start);
    const std::chrono::hh_mm_ss time(start - day);
    const auto excludes = [](const std::vector<int>& allowed, std::int64_t value) {
        return !allowed.empty() && !std::ranges::binary_search(allowed, int(value));
    };
    addDays(day, day + days(1));
    const auto hour = time.hours().count();
    const auto minute = time.minutes().count();
    const auto second = time.seconds().count();
    if (days_.empty()) {
        skipPeriodsBefore(day + days(1));
        return;
    }
    if (excludes(hours_, hour)) {
        skipPeriodsBefore(day + time.hours() + std::chrono::hours(1));
        return;
    }
    const bool isHourly = frequency_ == ICAL_HOURLY_RECURRENCE;
    if (!isHourly && excludes(minutes_, minute)) {
        skipPeriodsBefore(day + time.hours() + time.minutes() + std::chrono::minutes(1));
        return;
    }
    const bool isSecondly = frequency_ == ICAL_SECONDLY_RECURRENCE;
    period_ += interval_;
    if (isSecondly && excludes(seconds_, second))
        return;
    periodHours_ = {int(hour)};
    periodMinutes_ = isHourly ? minutes_ : std::vector<int>{int(minute)};
    periodSeconds_ = isSecondly ? std::vector<int>{int(second)} : seconds_;
    chooseCandidates();
}

void RuleIterator::addDays(local_days from, local_days to)
{
    for (local_days day = from; day < to;) {
        ++steps_;
        const year_month_day date(day);
        if (!months_.isEmpty() && !months_.contains(int(unsigned(date.month())), 12)) {
            day = local_days((date.year() / date.month() + months(1)) / 1);
            continue;
        }
        if (matches(day, date))
            days_.push_back(day);
        day += days(1);
    }
}

void RuleIterator::chooseCandidates()
{
    const auto size = [](const auto& list) { return std::int64_t(list.size()); };
    count_ = size(days_) * size(periodHours_) * size(periodMinutes_) * size(periodSeconds_);
    if (positions_.empty())
        return;
    chosen_.clear();
    for (const int each : positions_) {
        const std::int64_t index = each > 0 ? each - 1 : count_ + each;
        if (index >= 0 && index < count_)
            chosen_.push_back(index);
    }
    std::ranges::sort(chosen_);
    chosen_.erase(std::unique(chosen_.begin(), chosen_.end()), chosen_.end());
    count_ = size(chosen_);
}

local_seconds RuleIterator::candidate(std::int64_t index) const
{
    std::int64_t rest = positions_.empty() ? index : chosen_[std::size_t(index)];
    const auto take = [&rest](const auto& list) {
        const auto size = std::int64_t(list.size());
        return list[std::size_t(std::exchange(rest, rest / size) % size)];
    };
    const seconds second(take(periodSeconds_));
    const std::chrono::minutes minute(take(periodMinutes_));
    const std::chrono::hours hour(take(periodHours_));
    return days_[std::size_t(rest)] + hour + minute + second;
}

bool RuleIterator::matches(local_days day, year_month_day date) const
{
    if (!monthDays_.isEmpty()) {
        const auto last = date.year() / date.month() / std::chrono::last;
        if (!monthDays_.contains(int(unsigned(date.day())), int(unsigned(last.day()))))
            return false;
    }
    if (!yearDays_.isEmpty()) {
        const local_days newYear(date.year() / 1 / 1);
        const local_days nextYear((date.year() + years(1)) / 1 / 1);
        if (!yearDays_.contains(count(newYear, day) + 1, count(newYear, nextYear)))
            return false;
    }
    return (weeks_.isEmpty() || matchesWeek(day)) && matchesWeekday(day, date);
}

bool RuleIterator::matchesWeekday(local_days day, year_month_day date) const
{
    const unsigned weekday = weekdayOf(day);
    if (weekdays_.test(weekday) || (weekdays_.none() && numberedWeekdays_.empty()))
        return true;
    const bool isOfMonth = frequency_ == ICAL_MONTHLY_RECURRENCE || !months_.isEmpty();
    const local_days from(isOfMonth ? date.year() / date.month() / 1 : date.year() / 1 / 1);
    const year_month_day start(from);
    const local_days to(isOfMonth ? start + months(1) : start + years(1));
    return std::ranges::any_of(numberedWeekdays_, [&](const NumberedWeekday& each) {
        return each.weekday == weekday && isPlace(each.number, count(from, day) + 1, count(from, to));
    });
}

/// A week belongs to the year that has most of its days.
bool RuleIterator::matchesWeek(local_days day) const
{
    const days sinceWeekStart((weekdayOf(day) + 7 - weekStart_) % 7);
    const local_days middle = day - sinceWeekStart + days(3);
    const year itsYear = year_month_day(middle).year();
    const auto week = [](local_days dayOfWeek, year ofYear) {
        return count(local_days(ofYear / 1 / 1), dayOfWeek) / 7 + 1;
    };
    const local_days nextFirst = local_days((itsYear + years(1)) / 1 / 1);
    const auto restOfYear = (count(middle, nextFirst) - 1) / 7;
    return weeks_.contains(week(middle, itsYear), week(middle, itsYear) + restOfYear);
}

} // namespace quor::toolkit
