// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Items/RecurrenceExpansion.h"

#include "ToolKit/Calendar/Items/ItemRule.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <set>

namespace quor::toolkit {

namespace {

using Seconds = std::chrono::duration<double>;
using Iterator = std::unique_ptr<icalrecur_iterator, decltype(&icalrecur_iterator_free)>;

// A rule with a count is walked from its first occurrence. This limits the walk.
constexpr int mostSteps = 100'000;
constexpr Seconds aDay{86'400};

/// Whether libical may search for centuries, in one call that cannot be stopped, before it finds a match: a
/// rule by hour, minute or second with conditions. Of such a series only the first occurrence is listed.
bool isEndlessSearch(const icalrecurrencetype& rule)
{
    if (rule.freq > ICAL_HOURLY_RECURRENCE)
        return false;
    const auto has = [](const short* values) { return values[0] != ICAL_RECURRENCE_ARRAY_MAX; };
    return has(rule.by_second) || has(rule.by_minute) || has(rule.by_hour) || has(rule.by_day)
        || has(rule.by_month_day) || has(rule.by_year_day) || has(rule.by_week_no) || has(rule.by_month)
        || has(rule.by_set_pos);
}

/// Whether none of the rule's months has one of its days. libical would search for them forever.
bool isImpossible(const icalrecurrencetype& rule)
{
    if (rule.by_month[0] == ICAL_RECURRENCE_ARRAY_MAX || rule.by_month_day[0] == ICAL_RECURRENCE_ARRAY_MAX)
        return false;
    int longest = 0;
    for (const short* month = rule.by_month; *month != ICAL_RECURRENCE_ARRAY_MAX; ++month)
        longest = std::max(longest, *month >= 1 && *month <= 12 ? icaltime_days_in_month(*month, 2000) : 31);
    int least = 31;
    for (const short* day = rule.by_month_day; *day != ICAL_RECURRENCE_ARRAY_MAX; ++day)
        least = std::min(least, std::abs(int(*day)));
    return least > longest;
}

/// Whether a period never has as many candidates as the rule's positions (BYSETPOS) require: there is no
/// 300th Monday in a month. libical would search for them forever.
bool isPositionImpossible(const icalrecurrencetype& rule)
{
    if (rule.by_set_pos[0] == ICAL_RECURRENCE_ARRAY_MAX || rule.freq == ICAL_YEARLY_RECURRENCE)
        return false;
    const auto times = [](const short* values) {
        int count = 0;
        while (values[count] != ICAL_RECURRENCE_ARRAY_MAX)
            ++count;
        return std::max(1, count);
    };
    const int days = rule.freq == ICAL_MONTHLY_RECURRENCE ? 31 : 7;
    const qint64 most = qint64(days) * times(rule.by_hour) * times(rule.by_minute) * times(rule.by_second);
    for (const short* place = rule.by_set_pos; *place != ICAL_RECURRENCE_ARRAY_MAX; ++place) {
        if (std::abs(int(*place)) <= most)
            return false;
    }
    return true;
}

/// Converts the end of the rule to the zone and the kind of the events. libical compares the two without
/// regard to zones.
void localiseEnd(icalrecurrencetype& rule, const Recurrence& recurrence)
{
    if (icaltime_is_null_time(rule.until))
        return;
    if (rule.until.is_date && !recurrence.first.is_date) {
        rule.until.is_date = 0;
        rule.until.hour = 23;
        rule.until.minute = rule.until.second = 59;
    } else if (!rule.until.is_date && icaltime_is_utc(rule.until)) {
        const Date end = ItemZone::utc().moment(rule.until);
        if (isWritable(end))
            rule.until = recurrence.zone.local(end, recurrence.first.is_date);
    }
    rule.until.zone = nullptr;
}

/// Returns the last step of a rule by hour, minute or second before `from`. libical would walk all the steps
/// to it.
icaltimetype lastStepBefore(
    const icalrecurrencetype& rule, const icaltimetype& first, const icaltimetype& from)
{
    const int unit = rule.freq == ICAL_SECONDLY_RECURRENCE ? 1
        : rule.freq == ICAL_MINUTELY_RECURRENCE            ? 60
                                                           : 3600;
    const double step = double(unit) * std::max<int>(rule.interval, 1);
    const ItemZone wall = ItemZone::utc();
    const Seconds passed = wall.moment(from) - wall.moment(first);
    icaltimetype next
        = wall.local(wall.moment(first) + Seconds(std::floor(passed.count() / step) * step), false);
    next.zone = nullptr;
    return next;
}

/// Calls `visit` with each start in [start, end) that the rule generates, until `visit` returns false.
template <class Visit>
void visitStarts(const Recurrence& recurrence, const QByteArray& text, Date start, Date end, Visit visit)
{
    ItemRule owned(text);
    icalrecurrencetype& rule = owned.value;
    if (!owned.isValid() || isEndlessSearch(rule) || isImpossible(rule) || isPositionImpossible(rule)
        || (rule.freq <= ICAL_HOURLY_RECURRENCE && recurrence.first.is_date))
        return;
    localiseEnd(rule, recurrence);
    icaltimetype first = recurrence.first;
    first.zone = nullptr;
    icaltimetype from = first;
    if (rule.count == 0 && isWritable(start - aDay)) {
        from = recurrence.zone.local(start - aDay, first.is_date);
        from.zone = nullptr;
    }
    const bool isLater = icaltime_compare(from, first) > 0;
    const bool isWithinDays = rule.freq <= ICAL_HOURLY_RECURRENCE;
    if (isLater && isWithinDays)
        first = lastStepBefore(rule, first, from);
    const Iterator iterator(icalrecur_iterator_new(rule, first), &icalrecur_iterator_free);
    if (!iterator)
        return;
    if (isLater && !isWithinDays)
        icalrecur_iterator_set_start(iterator.get(), from);
    for (int step = 0; step < mostSteps; ++step) {
        const icaltimetype next = icalrecur_iterator_next(iterator.get());
        if (icaltime_is_null_time(next))
            return;
        const Date moment = recurrence.zone.moment(next);
        if (!(moment < end + aDay)) // where the clock is set back, an earlier moment may follow
            return;
        if (moment >= start && moment < end && !visit(moment))
            return;
    }
}

/// The starts of the occurrences in [start, end), removed ones left out.
std::set<Date> startsIn(const Recurrence& recurrence, Date start, Date end)
{
    std::set<Date> found;
    const auto add = [&](Date moment) {
        if (moment >= start && moment < end && !std::ranges::binary_search(recurrence.removed, moment))
            found.insert(moment);
        return found.size() < mostOccurrences;
    };
    add(recurrence.zone.moment(recurrence.first));
    for (const Date moment : recurrence.added)
        add(moment);
    for (const QByteArray& rule : recurrence.rules)
        visitStarts(recurrence, rule, start, end, add);
    return found;
}

} // namespace

void expand(const EventRecord& series, Date start, Date end,
    const std::function<void(Date occurrence, const EventFields& fields)>& visit)
{
    const Recurrence& recurrence = *series.recurrence;
    for (const auto& [occurrence, fields] : recurrence.overrides) {
        if (overlaps(fields.startDate, fields.endDate, start, end))
            visit(occurrence, fields);
    }
    const Seconds length = series.fields.endDate - series.fields.startDate;
    EventFields fields = series.fields;
    const Seconds slack = recurrence.first.is_date ? aDay : Seconds(0); // days differ in length
    for (const Date moment : startsIn(recurrence, start - length - slack, end)) {
        if (recurrence.overrides.contains(moment))
            continue;
        fields.startDate = moment;
        fields.endDate = moment + length;
        if (recurrence.first.is_date) {
            icaltimetype last = recurrence.zone.local(moment, true);
            icaltime_adjust(&last, recurrence.days, 0, 0, 0);
            fields.endDate = recurrence.zone.moment(last);
        }
        if (overlaps(fields.startDate, fields.endDate, start, end))
            visit(moment, fields);
    }
}

std::optional<EventFields> fieldsAt(const EventRecord& series, Date occurrence)
{
    const auto& overrides = series.recurrence->overrides;
    if (const auto own = overrides.find(occurrence); own != overrides.end())
        return own->second;
    std::optional<EventFields> found;
    expand(
        series, occurrence, occurrence + std::chrono::seconds(1), [&](Date start, const EventFields& fields) {
            if (start == occurrence)
                found = fields;
        });
    return found;
}

int countBefore(const EventRecord& series, Date moment)
{
    int count = 0;
    const Recurrence& recurrence = *series.recurrence;
    if (!recurrence.rules.empty()) {
        visitStarts(recurrence, recurrence.rules.front(), series.fields.startDate, moment, [&](Date) {
            ++count;
            return true;
        });
    }
    return count;
}

} // namespace quor::toolkit
