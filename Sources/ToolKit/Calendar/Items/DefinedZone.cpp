// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Items/DefinedZone.h"

#include "ToolKit/Calendar/Items/Components.h"
#include "ToolKit/Calendar/Items/ItemRule.h"
#include "ToolKit/Calendar/Items/ItemZone.h"

#include <algorithm>
#include <cstdlib>
#include <limits>

namespace quor::toolkit {

using std::chrono::local_seconds;
using std::chrono::seconds;

namespace {

constexpr std::size_t mostRules = 32;
constexpr std::int64_t mostStepsOfTwoYears = 400; // of a rule that a real zone may have
constexpr std::int64_t mostStepsOfCount = 20'000;
constexpr std::chrono::days twoYears{2 * 366};
constexpr qint64 longestOffset = 86'399;
constexpr qint64 yearLength = 31'556'952; // seconds
constexpr std::size_t mostYears = 64; // kept in memory

bool isGiven(const short* values)
{
    return values[0] != ICAL_RECURRENCE_ARRAY_MAX;
}

bool isYearly(const icalrecurrencetype& rule)
{
    const bool hasOneDate = !isGiven(rule.by_day) && !isGiven(rule.by_year_day) && !isGiven(rule.by_week_no)
        && !isGiven(rule.by_month_day);
    return rule.freq == ICAL_YEARLY_RECURRENCE && (isGiven(rule.by_month) || hasOneDate);
}

qint64 momentOf(local_seconds local, qint64 offset)
{
    return local.time_since_epoch().count() - offset;
}

} // namespace

DefinedZone::DefinedZone(icalcomponent* definition)
{
    for (const auto kind : {ICAL_XSTANDARD_COMPONENT, ICAL_XDAYLIGHT_COMPONENT}) {
        for (icalcomponent* each : componentsIn(definition, kind))
            readObservance(each);
    }
    std::ranges::stable_sort(changes_, {}, &Change::moment);
}

void DefinedZone::readObservance(icalcomponent* observance)
{
    icalproperty* const start = icalcomponent_get_first_property(observance, ICAL_DTSTART_PROPERTY);
    icalproperty* const from = icalcomponent_get_first_property(observance, ICAL_TZOFFSETFROM_PROPERTY);
    icalproperty* const to = icalcomponent_get_first_property(observance, ICAL_TZOFFSETTO_PROPERTY);
    const auto first = start ? localTime(icalproperty_get_dtstart(start)) : std::nullopt;
    if (!first || !to)
        return;
    const auto offset = [](int given) { return std::clamp<qint64>(given, -longestOffset, longestOffset); };
    const qint64 after = offset(icalproperty_get_tzoffsetto(to));
    const Offsets offsets{from ? offset(icalproperty_get_tzoffsetfrom(from)) : after, after};
    changes_.push_back({momentOf(*first, offsets.before), offsets});
    for (icalproperty* each : propertiesIn(observance, ICAL_RDATE_PROPERTY)) {
        if (const auto date = localTime(icalproperty_get_rdate(each).time))
            changes_.push_back({momentOf(*date, offsets.before), offsets});
    }
    for (icalproperty* each : propertiesIn(observance, ICAL_RRULE_PROPERTY))
        readRule(each, *first, offsets);
}

void DefinedZone::readRule(icalproperty* property, local_seconds first, const Offsets& offsets)
{
    const icalrecurrencetype rule = icalproperty_get_rrule(property);
    if (yearly_.size() >= mostRules || !isYearly(rule))
        return;
    RuleIterator starts(rule, first, false);
    if (rule.count > 0) {
        RuleIterator counted = starts;
        for (auto each = counted.next(); each && counted.steps() < mostStepsOfCount; each = counted.next())
            changes_.push_back({momentOf(*each, offsets.before), offsets});
        return;
    }
    RuleIterator sample = starts;
    sample.restrictTo(first, first + twoYears);
    while (sample.next()) { }
    if (sample.steps() > mostStepsOfTwoYears)
        return;
    const auto until = icaltime_is_null_time(rule.until) ? std::nullopt : localTime(rule.until);
    const qint64 last = until ? momentOf(*until, icaltime_is_utc(rule.until) ? 0 : offsets.before)
                              : std::numeric_limits<qint64>::max();
    yearly_.push_back({starts, momentOf(first, offsets.before), last, offsets});
}

DefinedZone::Changes DefinedZone::changesBetween(qint64 start, qint64 end) const
{
    const auto from = std::ranges::lower_bound(changes_, start, {}, &Change::moment);
    const auto to = std::ranges::lower_bound(changes_, end, {}, &Change::moment);
    Changes found(from == changes_.begin() ? from : std::prev(from), to);
    for (const YearlyChange& each : yearly_) {
        const qint64 last = std::min(end - 1, each.last);
        if (each.first > last || (each.last < start && !found.empty() && each.last <= found.front().moment))
            continue;
        const local_seconds local(seconds(std::min(start, each.last) + each.offsets.before));
        RuleIterator starts = each.starts;
        starts.restrictTo(local - twoYears, local_seconds(seconds(last + each.offsets.before)));
        while (const auto change = starts.next())
            found.push_back({momentOf(*change, each.offsets.before), each.offsets});
    }
    std::ranges::stable_sort(found, {}, &Change::moment);
    const auto first = std::ranges::lower_bound(found, start, {}, &Change::moment);
    if (first != found.begin())
        found.erase(found.begin(), std::prev(first));
    return found;
}

qint64 DefinedZone::offsetAt(qint64 moment) const
{
    if (moment < changes_.front().moment)
        return changes_.front().offsets.before;
    const qint64 year = moment / yearLength - (moment % yearLength < 0 ? 1 : 0);
    const std::scoped_lock lock(mutex_);
    if (years_.size() >= mostYears && !years_.contains(year))
        years_.clear();
    const auto [entry, isNew] = years_.try_emplace(year);
    if (isNew)
        entry->second = changesBetween(year * yearLength, (year + 1) * yearLength);
    const auto next = std::ranges::upper_bound(entry->second, moment, {}, &Change::moment);
    return std::prev(next)->offsets.after;
}

} // namespace quor::toolkit
