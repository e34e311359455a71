// SPDX-License-Identifier: MIT
#include "Platform/Calendar/Calendar.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace quor::platform;
using namespace Qt::StringLiterals;

namespace {

constexpr int most = std::numeric_limits<int>::max();

TEST(Calendar, ComposesLeniently)
{
    Calendar calendar;
    calendar.setLocale(QLocale(QLocale::German));
    calendar.setTimeZone(QTimeZone::utc());
    const struct {
        DateComponents components;
        std::optional<QString> date;
    } cases[] = {
        {{.year = 2024}, u"2024-01-01T00:00:00Z"_s},
        {{.year = 2023, .month = 14, .day = 0}, u"2024-01-31T00:00:00Z"_s},
        {{.year = 2024, .month = 0, .day = 32, .hour = -1}, u"2023-12-31T23:00:00Z"_s},
        {{.year = 2024, .day = 1, .hour = 23, .minute = 59, .second = 60}, u"2024-01-02T00:00:00Z"_s},
        {{.year = 1970, .second = most}, u"2038-01-19T03:14:07Z"_s},
        {{.year = 2024, .month = 5, .day = 9, .weekday = 1, .weekOfYear = 1}, u"2024-05-09T00:00:00Z"_s},
        {{.year = 2024, .month = 5, .weekday = 2, .weekdayOrdinal = 3}, u"2024-05-20T00:00:00Z"_s},
        {{.weekday = 1, .weekOfYear = 1, .yearForWeekOfYear = 2025}, u"2025-01-05T00:00:00Z"_s},
        {{.weekOfYear = 53, .yearForWeekOfYear = 2024}, u"2024-12-30T00:00:00Z"_s},
        {{.month = 5, .day = 9}, {}},
        {{.year = most, .month = most, .day = most}, {}},
        {{.year = 2024, .month = -most - 1}, {}},
        {{.weekOfYear = most, .yearForWeekOfYear = most}, {}},
        {{.era = most, .year = 600'000}, {}},
    };
    for (const auto& each : cases) {
        const auto date = calendar.date(each.components);
        const auto text = [](Date at) { return qDateTimeFromDate(at).toUTC().toString(Qt::ISODate); };
        EXPECT_EQ(date ? std::optional(text(*date)) : std::nullopt, each.date);
    }
}

TEST(Calendar, ComputesInZonesOfOneOffset)
{
    Calendar calendar;
    for (const auto& [zone, newYear] : {std::pair(QTimeZone(19'800), u"2023-12-31T18:30:00Z"_s),
             {QTimeZone("UTC-03:00"), u"2024-01-01T03:00:00Z"_s},
             {QTimeZone("Etc/GMT+5"), u"2024-01-01T05:00:00Z"_s}}) {
        calendar.setTimeZone(zone);
        const auto date = calendar.date({.year = 2024});
        ASSERT_TRUE(date);
        EXPECT_EQ(qDateTimeFromDate(*date).toUTC().toString(Qt::ISODate), newYear) << zone.id().constData();
    }
}

TEST(Calendar, FollowsTheUserUntilItIsSet)
{
    const QLocale before;
    const QByteArray zoneBefore = qgetenv("TZ");
    const Calendar following;
    Calendar set = following;
    set.setLocale(QLocale(u"en_US"_s));
    set.setTimeZone(QTimeZone("Asia/Tokyo"));
    set.setFirstWeekday(99);
    QLocale::setDefault(QLocale(u"de_AT"_s));
    for (const auto& [variable, name] : {std::pair("Europe/Vienna", "Europe/Vienna"),
             {":Asia/Kabul", "Asia/Kabul"}, {"ABC-5:45", "ABC-5:45"}, {"no/such", "UTC"}}) {
        qputenv("TZ", variable);
        EXPECT_EQ(following.timeZoneName(), name) << variable;
    }
    zoneBefore.isNull() ? qunsetenv("TZ") : qputenv("TZ", zoneBefore);
    EXPECT_EQ(following.dateFormat(u"j"_s), u"HH 'Uhr'"_s);
    EXPECT_EQ(std::pair(following.firstWeekday(), following.minimumDaysInFirstWeek()), std::pair(2, 4));
    EXPECT_EQ(std::pair(set.firstWeekday(), set.minimumDaysInFirstWeek()), std::pair(7, 1));
    EXPECT_EQ(set.timeZoneName(), "Asia/Tokyo");
    EXPECT_EQ(set.dateFormat(u"j"_s), u"h\u202Fa"_s);
    EXPECT_EQ(set.difference({Calendar::Unit::second}, Date(), dateFromSeconds(1e11)), std::nullopt);
    QLocale::setDefault(before);
}

/// Some calendars compute with tables of years, some with the moon.
TEST(Calendar, ReachesTheEndsOfEachKind)
{
    for (const char* const name : {"buddhist", "chinese", "coptic", "dangi", "ethiopic",
             "ethiopic-amete-alem", "gregorian", "hebrew", "indian", "islamic", "islamic-civil",
             "islamic-umalqura", "iso8601", "japanese", "persian", "roc", "nonsense"}) {
        Calendar calendar;
        calendar.setIdentifier(name);
        for (const double seconds : {-furthestSeconds, -6e10, 0.0, 6e10, furthestSeconds}) {
            const Date date = dateFromSeconds(seconds);
            const auto components = calendar.components(date);
            ASSERT_TRUE(components);
            // In the distant past and future, lunar calendars of ICU do not find the same moment again.
            const auto found = calendar.date(*components);
            EXPECT_TRUE(found && (*found == date || std::fabs(seconds) == furthestSeconds))
                << name << ' ' << seconds;
        }
    }
}

} // namespace
