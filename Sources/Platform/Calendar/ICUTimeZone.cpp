// SPDX-License-Identifier: MIT
#include "Platform/Calendar/ICUTimeZone.h"

#include <QDateTime>

#include <unicode/simpletz.h>
#include <unicode/tzrule.h>
#include <unicode/tztrans.h>

#include <cmath>
#include <tuple>
#include <utility>

namespace quor::platform {

namespace {

constexpr UDate second = 1000; // ICU counts in milliseconds
constexpr UDate longestPeriod = 1e15; // some 30,000 years, for a zone without further transitions
constexpr UDate longestOffset = 16 * 3600 * second; // no zone was ever further from UTC

struct Offsets {
    int32_t standard; ///< milliseconds
    int32_t daylight; ///< milliseconds, added to the standard time
    [[nodiscard]] int32_t total() const { return standard + daylight; }
};

QDateTime utc(UDate moment)
{
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(std::floor(moment)), Qt::UTC);
}

/// A moment in the same second as `moment`, but not at its start. Transitions are at the start of a second,
/// and Qt fails to find the next one from exactly the last that a zone file lists.
QDateTime betweenTransitions(UDate moment)
{
    return utc(std::floor(moment / second) * second + 1);
}

/// An ICU time zone that computes with a `QTimeZone`.
///
/// Derives from one of ICU's own classes, since ICU's calendars recognise only those when they resolve
/// skipped and repeated times of day. Overrides every function that ICU's calendars and formatters call.
class SystemTimeZone final : public icu::SimpleTimeZone {
public:
    explicit SystemTimeZone(const QTimeZone& zone)
        : SimpleTimeZone(0, icu::UnicodeString::fromUTF8(zone.id().constData()))
        , zone_(zone)
        , icuZone_(createTimeZone(icu::UnicodeString::fromUTF8(zone_.id().constData())))
    {
        setRawOffset(offsetsAt(UDate(QDateTime::currentMSecsSinceEpoch())).standard);
    }

    [[nodiscard]] SystemTimeZone* clone() const override { return new SystemTimeZone(*this); }

    [[nodiscard]] UBool hasSameRules(const icu::TimeZone& other) const override
    {
        const auto* const system = dynamic_cast<const SystemTimeZone*>(&other);
        return static_cast<UBool>(system && system->zone_ == zone_);
    }

    [[nodiscard]] UBool useDaylightTime() const override
    {
        return static_cast<UBool>(zone_.hasDaylightTime());
    }

    using SimpleTimeZone::getOffset;
    void getOffset(
        UDate date, UBool isLocal, int32_t& standard, int32_t& daylight, UErrorCode& status) const override
    {
        if (isLocal)
            getOffsetFromLocal(date, UCAL_TZ_LOCAL_FORMER, UCAL_TZ_LOCAL_LATTER, standard, daylight, status);
        else
            std::tie(standard, daylight) = parts(offsetsAt(date));
    }

    void getOffsetFromLocal(UDate local, UTimeZoneLocalOption skipped, UTimeZoneLocalOption repeated,
        int32_t& standard, int32_t& daylight, UErrorCode& /*status*/) const override
    {
        std::tie(standard, daylight) = parts(offsetsOfLocal(local, skipped, repeated));
    }

    UBool getNextTransition(UDate base, UBool inclusive, icu::TimeZoneTransition& result) const override
    {
        return describe(zone_.nextTransition(betweenTransitions(inclusive ? base - 1 : base)), result);
    }

    UBool getPreviousTransition(UDate base, UBool inclusive, icu::TimeZoneTransition& result) const override
    {
        return describe(zone_.previousTransition(inclusive ? betweenTransitions(base) : utc(base)), result);
    }

private:
    [[nodiscard]] static std::pair<int32_t, int32_t> parts(Offsets offsets)
    {
        return {offsets.standard, offsets.daylight};
    }

    [[nodiscard]] Offsets offsetsAt(UDate moment) const
    {
        if (moment >= known_.from && moment < known_.until)
            return known_.offsets;
        const QDateTime date = utc(moment); // not by offsetData, which fails for zones of one offset
        const QDateTime next = zone_.nextTransition(betweenTransitions(moment)).atUtc;
        known_ = {moment, next.isValid() ? UDate(next.toMSecsSinceEpoch()) : moment + longestPeriod,
            {int32_t(zone_.standardTimeOffset(date) * second),
                int32_t(zone_.daylightTimeOffset(date) * second)}};
        // The names of zones in ICU fit ICU's division into standard and daylight time. The system's data
        // divide differently in some zones: in Ireland the summer is the standard time.
        Offsets named{0, 0};
        UErrorCode status = U_ZERO_ERROR;
        icuZone_->getOffset(moment, false, named.standard, named.daylight, status);
        if (U_SUCCESS(status) && named.total() == known_.offsets.total())
            known_.offsets = named;
        return known_.offsets;
    }

    [[nodiscard]] Offsets offsetsOfLocal(
        UDate local, UTimeZoneLocalOption skipped, UTimeZoneLocalOption repeated) const
    {
        const auto leadsTo
            = [&](Offsets offsets) { return offsetsAt(local - offsets.total()).total() == offsets.total(); };
        const Offsets before = offsetsAt(local - longestOffset);
        const Offsets after = offsetsAt(local + longestOffset);
        const bool isBefore = leadsTo(before);
        const bool isAfter = leadsTo(after);
        if (isBefore != isAfter)
            return isBefore ? before : after;
        // Two transitions within a day.
        if (const Offsets between = offsetsAt(local - before.total()); !isBefore && leadsTo(between))
            return between;
        const auto option = isBefore ? repeated : skipped;
        return (option & UCAL_TZ_LOCAL_LATTER) == UCAL_TZ_LOCAL_LATTER ? after : before;
    }

    [[nodiscard]] UBool describe(
        const QTimeZone::OffsetData& transition, icu::TimeZoneTransition& result) const
    {
        if (!transition.atUtc.isValid())
            return false;
        const auto moment = UDate(transition.atUtc.toMSecsSinceEpoch());
        const auto rule = [&](Offsets offsets) {
            icu::UnicodeString name;
            return new icu::InitialTimeZoneRule(getID(name), offsets.standard, offsets.daylight);
        };
        result.setTime(moment);
        result.adoptFrom(rule(offsetsAt(moment - 1)));
        result.adoptTo(rule(offsetsAt(moment)));
        return true;
    }

    /// Offsets that were looked up, and a time for which they are valid.
    struct Known {
        UDate from = 0;
        UDate until = 0;
        Offsets offsets{0, 0};
    };

    QTimeZone zone_;
    std::shared_ptr<const icu::TimeZone> icuZone_; ///< ICU's own zone of that name; UTC if there is none
    /// Saves most lookups, which cost some 20 times as much as the rest of a computation.
    mutable Known known_;
};

} // namespace

std::unique_ptr<icu::TimeZone> icuTimeZone(const QTimeZone& zone)
{
    return std::make_unique<SystemTimeZone>(zone.isValid() ? zone : QTimeZone::utc());
}

} // namespace quor::platform
