// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Items/RecurrenceExpansion.h"

#include "ToolKit/Calendar/Items/ItemRule.h"
#include "ToolKit/Calendar/Items/RuleIterator.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <set>

namespace quor::toolkit {

namespace {

using std::chrono::local_seconds;
using Seconds = std::chrono::duration<double>;
using Iterator = std::unique_ptr<icalrecur_iterator, decltype(&icalrecur_iterator_free)>;

constexpr Seconds aDay{86'400};
constexpr int leapMonth = 0x1000; // libical's flag
// By the rules of summer time. Only where a zone changed its date was it more.
constexpr Seconds longestClockChange{3 * 3'600};

/// Whether the rule needs libical's calendars: another one than the Gregorian, or months that are too short
/// for a day are not just left out.
bool isScaled(const icalrecurrencetype& rule)
{
    return rule.rscale && (rule.skip != ICAL_SKIP_OMIT || qstricmp(rule.rscale, "GREGORIAN") != 0);
}

bool isGiven(const short* values)
{
    return values[0] != ICAL_RECURRENCE_ARRAY_MAX;
}

/// Whether libical finds an occurrence in each year. It searches for others without a limit.
bool occursEachYear(const icalrecurrencetype& rule)
{
    constexpr int shortestMonth = 29;
    constexpr int mostMonths = 12;
    const auto isWithin = [](const short* values, int limit) {
        while (*values != ICAL_RECURRENCE_ARRAY_MAX && std::abs(int(*values)) <= limit)
            ++values;
        return *values == ICAL_RECURRENCE_ARRAY_MAX;
    };
    const bool isSkipping = rule.skip != ICAL_SKIP_OMIT;
    return (rule.freq == ICAL_YEARLY_RECURRENCE || rule.freq == ICAL_MONTHLY_RECURRENCE)
        && !isGiven(rule.by_day) && !isGiven(rule.by_year_day) && !isGiven(rule.by_week_no)
        && !isGiven(rule.by_set_pos) && (isSkipping || isWithin(rule.by_month_day, shortestMonth))
        && isWithin(rule.by_month, isSkipping ? leapMonth | mostMonths : mostMonths);
}

/// Of a series by other rules, only the first occurrence is listed.
bool isUsable(const ItemRule& rule, bool isDate)
{
    if (!rule.isValid())
        return false;
    if (isScaled(rule.value))
        return occursEachYear(rule.value);
    return rule.value.freq > ICAL_HOURLY_RECURRENCE || !isDate;
}

/// Returns the last local time that the rule allows. An end that is a date includes that whole day.
local_seconds endOf(const icalrecurrencetype& rule, const Recurrence& recurrence)
{
    if (icaltime_is_null_time(rule.until))
        return local_seconds::max();
    const auto until = localTime(rule.until);
    if (!until)
        return local_seconds::min();
    if (rule.until.is_date && !recurrence.first.is_date)
        return *until + std::chrono::seconds(86'399);
    const Date end = ItemZone::utc().moment(*until);
    return icaltime_is_utc(rule.until) && isWritable(end) ? recurrence.zone.localTime(end) : *until;
}

/// Calls `visit` with each local time in [from, to] that the rule generates, until `visit` returns false.
template <class Visit>
void visitScaled(
    icalrecurrencetype rule, icaltimetype first, local_seconds from, local_seconds to, Visit visit)
{
    constexpr int mostStarts = 10'000;
    first.zone = nullptr;
    rule.until = icaltime_null_time();
    if (rule.skip == ICAL_SKIP_OMIT && !isGiven(rule.by_month_day))
        rule.skip = ICAL_SKIP_BACKWARD; // the start may be in a leap month, or on a day that few years have
    const Iterator iterator(icalrecur_iterator_new(rule, first), &icalrecur_iterator_free);
    for (int step = 0; iterator && step < mostStarts; ++step) {
        const auto start = localTime(icalrecur_iterator_next(iterator.get()));
        if (!start || *start > to || (*start >= from && !visit(*start)))
            return;
    }
}

/// Calls `visit` with each start in [start, end) that the rule generates, until `visit` returns false.
template <class Visit>
void visitStarts(const Recurrence& recurrence, const icalrecurrencetype& rule, Date start, Date end,
    ExpansionLimit& limit, Visit visit)
{
    // Where the clock changes, local times and moments can be in different order.
    const Seconds slack = rule.freq <= ICAL_HOURLY_RECURRENCE ? longestClockChange : aDay;
    const auto local = [&](Date moment, local_seconds otherwise) {
        return isWritable(moment) ? recurrence.zone.localTime(moment) : otherwise;
    };
    const local_seconds from = local(start - slack, local_seconds::min());
    const local_seconds to = std::min(local(end + slack, local_seconds::max()), endOf(rule, recurrence));
    const auto visitLocal = [&](local_seconds each) {
        const Date moment = recurrence.zone.moment(each);
        return moment < start || moment >= end || visit(moment);
    };
    if (isScaled(rule)) {
        visitScaled(rule, recurrence.first, from, to, visitLocal);
        return;
    }
    const auto first = localTime(recurrence.first);
    if (!first || limit.steps <= 0)
        return;
    RuleIterator iterator(rule, *first, recurrence.first.is_date);
    iterator.restrictTo(from, to);
    while (const auto each = iterator.next()) {
        if (*each >= from && !visitLocal(*each))
            break;
    }
    limit.steps -= iterator.steps();
}

/// The starts of the occurrences in [start, end), removed ones left out. The start of the series is one of
/// them only if a rule generates it, or if there is no rule.
std::set<Date> startsIn(const Recurrence& recurrence, Date start, Date end, ExpansionLimit& limit)
{
    std::set<Date> found;
    const auto add = [&](Date moment) {
        if (moment >= start && moment < end && !std::ranges::binary_search(recurrence.removed, moment))
            found.insert(moment);
        return found.size() < std::min(mostOccurrences, limit.occurrences);
    };
    bool hasRule = false;
    for (const QByteArray& text : recurrence.rules) {
        const ItemRule rule(text);
        if (!isUsable(rule, recurrence.first.is_date))
            continue;
        visitStarts(recurrence, rule.value, start, end, limit, add);
        hasRule = true;
    }
    if (!hasRule)
        add(recurrence.zone.moment(recurrence.first));
    for (const Date moment : recurrence.added)
        add(moment);
    limit.occurrences -= std::min(limit.occurrences, found.size());
    return found;
}

} // namespace

void expand(
    const EventRecord& series, Date start, Date end, ExpansionLimit& limit, const OccurrenceVisit& visit)
{
    const Recurrence& recurrence = *series.recurrence;
    for (const auto& [occurrence, fields] : recurrence.overrides) {
        if (overlaps(fields.startDate, fields.endDate, start, end))
            visit(occurrence, fields);
    }
    const Seconds length = series.fields.endDate - series.fields.startDate;
    EventFields fields = series.fields;
    const Seconds slack = recurrence.first.is_date ? aDay : Seconds(0); // days differ in length
    for (const Date moment : startsIn(recurrence, start - length - slack, end, limit)) {
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
    ExpansionLimit limit;
    const Date end = occurrence + std::chrono::seconds(1);
    expand(series, occurrence, end, limit, [&](Date start, const EventFields& fields) {
        if (start == occurrence)
            found = fields;
    });
    return found;
}

std::optional<Date> firstOccurrence(const EventRecord& series, Date end)
{
    const Recurrence& recurrence = *series.recurrence;
    const Date first = series.fields.startDate;
    if (first < end && fieldsAt(series, first)) // without a look at all later ones
        return first;
    ExpansionLimit limit;
    std::set<Date> starts = startsIn(recurrence, first, end, limit);
    if (!recurrence.overrides.empty() && recurrence.overrides.begin()->first < end)
        starts.insert(recurrence.overrides.begin()->first);
    return starts.empty() ? std::nullopt : std::optional(*starts.begin());
}

int countBefore(const EventRecord& series, Date moment)
{
    int count = 0;
    const Recurrence& recurrence = *series.recurrence;
    if (recurrence.rules.empty())
        return 0;
    ExpansionLimit limit;
    const ItemRule rule(recurrence.rules.front());
    if (isUsable(rule, recurrence.first.is_date)) {
        visitStarts(recurrence, rule.value, series.fields.startDate, moment, limit, [&](Date) {
            ++count;
            return true;
        });
    }
    return count;
}

} // namespace quor::toolkit
