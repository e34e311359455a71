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

constexpr std::size_t mostRules = 16;
constexpr std::int64_t mostStepsOfTwoYears = 400; // of a rule that a real zone may have
constexpr std::int64_t mostStepsOfCount = 20'000;
constexpr std::chrono::days twoYears{2 * 366};
constexpr qint64 longestOffset = 86'399;

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

qint64 DefinedZone::offsetAt(qint64 moment) const
{
    const auto next = std::ranges::upper_bound(changes_, moment, {}, &Change::moment);
    if (next == changes_.begin())
        return next->offsets.before;
    Change latest = *std::prev(next);
    for (const YearlyChange& each : yearly_) {
        if (each.first > moment || each.last <= latest.moment)
            continue;
        const local_seconds local(seconds(std::min(moment, each.last) + each.offsets.before));
        RuleIterator starts = each.starts;
        starts.restrictTo(local - twoYears, local);
        while (const auto start = starts.next()) {
            const qint64 change = momentOf(*start, each.offsets.before);
            if (change > latest.moment)
                latest = {change, each.offsets};
        }
    }
    return latest.offsets.after;
}

} // namespace quor::toolkit
