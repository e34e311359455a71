// SPDX-License-Identifier: MIT
#include "Platform/Calendar/Calendar.h"
#include "Platform/Calendar/TimeZones.h"

#include <QDateTime>
#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cmath>
#include <ctime>
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
    const std::tuple<DateComponents, std::optional<QString>> cases[]
        = {{{.year = 2024}, u"2024-01-01T00:00:00Z"_s},
            {{.year = 2023, .month = 14, .day = 0}, u"2024-01-31T00:00:00Z"_s},
            {{.year = 2024, .month = 0, .day = 32, .hour = -1}, u"2023-12-31T23:00:00Z"_s},
            {{.year = 2024, .day = 1, .hour = 23, .minute = 59, .second = 60}, u"2024-01-02T00:00:00Z"_s},
            {{.year = 1970, .second = most}, u"2038-01-19T03:14:07Z"_s},
            {{.year = 2024, .month = 5, .day = 9, .weekday = 1, .weekOfYear = 1}, u"2024-05-09T00:00:00Z"_s},
            {{.year = 2024, .month = 5, .weekday = 2, .weekdayOrdinal = 3}, u"2024-05-20T00:00:00Z"_s},
            {{.weekday = 1, .weekOfYear = 1, .yearForWeekOfYear = 2025}, u"2025-01-05T00:00:00Z"_s},
            {{.weekOfYear = 53, .yearForWeekOfYear = 2024}, u"2024-12-30T00:00:00Z"_s},
            {{.month = 5, .day = 9}, {}}, {{.year = most, .month = most, .day = most}, {}},
            {{.year = 2024, .month = -most - 1}, {}}, {{.weekOfYear = most, .yearForWeekOfYear = most}, {}},
            {{.era = most, .year = 600'000}, {}}};
    for (const auto& [components, found] : cases) {
        const auto date = calendar.date(components);
        const auto text = [](Date at) { return qDateTimeFromDate(at).toUTC().toString(Qt::ISODate); };
        EXPECT_EQ(date ? std::optional(text(*date)) : std::nullopt, found);
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

TEST(Date, IsTheSameMomentAsAQDateTime)
{
    const QTimeZone berlin("Europe/Berlin");
    const std::tuple<QString, double, QString> cases[] = {
        {u"1970-01-01T00:00:00.000Z"_s, 0, u"1970-01-01T01:00:00.000+01:00"_s},
        {u"1969-12-31T23:59:59.999Z"_s, -0.001, u"1970-01-01T00:59:59.999+01:00"_s},
        {u"2024-10-27T00:30:00.001Z"_s, 1'729'989'000.001, u"2024-10-27T02:30:00.001+02:00"_s},
        {u"2024-10-27T01:30:00.999Z"_s, 1'729'992'600.999, u"2024-10-27T02:30:00.999+01:00"_s},
        {u"0044-03-15T11:00:00.000Z"_s, -60'772'251'600, u"0044-03-15T11:53:28.000+00:53"_s},
    };
    for (const auto& [utc, seconds, inBerlin] : cases) {
        const QDateTime dateTime = QDateTime::fromString(utc, Qt::ISODateWithMs);
        const auto date = dateFromQDateTime(dateTime);
        ASSERT_TRUE(date) << qPrintable(utc);
        EXPECT_EQ(secondsSince1970(*date), seconds) << qPrintable(utc);
        EXPECT_EQ(qDateTimeFromDate(*date, berlin).toString(Qt::ISODateWithMs), inBerlin);
        EXPECT_EQ(dateFromQDateTime(qDateTimeFromDate(*date, berlin)), date) << qPrintable(utc);
        EXPECT_EQ(qDateTimeFromDate(*date), dateTime);
        EXPECT_EQ(qDateTimeFromDate(*date).timeSpec(), Qt::LocalTime);
    }
}

TEST(Date, KeepsEveryMillisecondOfItsRange)
{
    for (const qint64 start :
        {qint64(-8e15), qint64(-62'000'000'000'000), qint64(1'729'989'000'000), qint64(8e15) - 1000}) {
        for (qint64 millisecond = start; millisecond <= start + 1000; ++millisecond) {
            const auto date = dateFromQDateTime(QDateTime::fromMSecsSinceEpoch(millisecond, Qt::UTC));
            ASSERT_TRUE(date);
            ASSERT_EQ(qDateTimeFromDate(*date, QTimeZone::utc()).toMSecsSinceEpoch(), millisecond);
        }
    }
    const Date fine = dateFromSeconds(1'729'989'000.0014);
    EXPECT_EQ(qDateTimeFromDate(fine, QTimeZone::utc()).toMSecsSinceEpoch(), 1'729'989'000'001) << "rounded";
}

TEST(Date, HasNoQDateTimeOutOfRange)
{
    for (const double seconds : {8.1e12, -8.1e12, 1e300, double(INFINITY), double(NAN)}) {
        EXPECT_FALSE(qDateTimeFromDate(dateFromSeconds(seconds)).isValid()) << seconds;
        EXPECT_FALSE(qDateTimeFromDate(dateFromSeconds(seconds), QTimeZone::utc()).isValid()) << seconds;
    }
    EXPECT_FALSE(qDateTimeFromDate(Date(), QTimeZone()).isValid());
    EXPECT_EQ(dateFromQDateTime(QDateTime()), std::nullopt);
    EXPECT_EQ(dateFromQDateTime(QDateTime(QDate(2024, 2, 30), QTime(0, 0))), std::nullopt);
    EXPECT_EQ(dateFromQDateTime(QDateTime::fromMSecsSinceEpoch(qint64(8.1e15), Qt::UTC)), std::nullopt);
}

TEST(TimeZones, KnowsNamesAndNothingElse)
{
    for (const char* const name : {"Europe/Berlin", "US/Eastern", "America/Argentina/Buenos_Aires",
             "America/Port-au-Prince", "Etc/GMT+5", "UTC", "GB-Eire"})
        EXPECT_TRUE(namedTimeZone(name).has_value()) << name;
    for (const char* const text : {"", "Europe", "Europe/", "Nowhere", "/Europe/Berlin", "Europe/Nowhere",
             "UTC+2", "GMT+2", "Europe/Bérlin", "<+03>-3", "Etc/../Europe/Berlin", "../../../etc/localtime"})
        EXPECT_EQ(namedTimeZone(text), std::nullopt) << text;
    EXPECT_EQ(namedTimeZone(QByteArray(1'000'000, 'a')), std::nullopt);
}

TEST(TimeZones, ReadsTheVariableAsTheCLibraryDoes)
{
    const QByteArray before = qgetenv("TZ");
    const QTemporaryDir folder; // with a zone file of the user's own
    const QString file = folder.filePath(u"zoneinfo/Mine"_s);
    EXPECT_TRUE(
        QDir(folder.path()).mkpath(u"zoneinfo"_s) && QFile::copy(u"/usr/share/zoneinfo/Asia/Tokyo"_s, file));
    for (const QByteArray& value : QByteArrayList{QFile::encodeName(file), "Europe/Berlin", ":Asia/Kabul",
             "/usr/share/zoneinfo/Australia/Lord_Howe", "/etc/localtime", "", ":", "UTC+5:30", "UTC-2",
             "GMT+3", "GMT0BST,M3.5.0/1,M10.5.0", "ABC-5:45", "<+03>-3", "CET-1CEST,M3.5.0,M10.5.0/3",
             "EST5EDT,J60,J300", "no/such", "Europe/berlin", "A3"}) {
        qputenv("TZ", value);
        tzset();
        // From the winter of 2024 to the winter of 2025, around every change of the clocks of these zones.
        for (std::time_t moment = 1'704'067'200; moment < 1'737'000'000; moment += 3600) {
            std::tm local{};
            localtime_r(&moment, &local);
            const QDateTime utc = QDateTime::fromSecsSinceEpoch(moment, Qt::UTC);
            ASSERT_EQ(timeZoneOfVariable(value).offsetFromUtc(utc), local.tm_gmtoff)
                << value.constData() << ' ' << moment;
        }
        EXPECT_EQ(userTimeZone(), timeZoneOfVariable(value));
    }
    // Without dates, the C library changes on the same days as these, but at another hour.
    EXPECT_EQ(timeZoneOfVariable("CET-1CEST"), timeZoneOfVariable("CET-1CEST,M3.2.0,M11.1.0"));
    EXPECT_EQ(timeZoneOfVariable("/usr/share/zoneinfo/Asia/Calcutta").id(), "Asia/Calcutta");
    qunsetenv("TZ");
    EXPECT_EQ(userTimeZone(), timeZoneOfVariable("/etc/localtime"));
    before.isNull() ? qunsetenv("TZ") : qputenv("TZ", before);
    tzset();
}

} // namespace
