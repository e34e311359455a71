// SPDX-License-Identifier: MIT
#include "Platform/Calendar/TimeZones.h"

#include <QDateTime>

#include <gtest/gtest.h>

#include <ctime>

using namespace quor::platform;

namespace {

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
    for (const char* const value : {"Europe/Berlin", ":Asia/Kabul", "/usr/share/zoneinfo/Australia/Lord_Howe",
             "/etc/localtime", "", ":", "UTC+5:30", "UTC-2", "GMT+3", "GMT0BST,M3.5.0/1,M10.5.0", "ABC-5:45",
             "<+03>-3", "CET-1CEST,M3.5.0,M10.5.0/3", "EST5EDT,J60,J300", "no/such", "Europe/berlin", "A3"}) {
        qputenv("TZ", value);
        tzset();
        // From the winter of 2024 to the winter of 2025, around every change of the clocks of these zones.
        for (std::time_t moment = 1'704'067'200; moment < 1'737'000'000; moment += 3600) {
            std::tm local{};
            localtime_r(&moment, &local);
            const QDateTime utc = QDateTime::fromSecsSinceEpoch(moment, Qt::UTC);
            ASSERT_EQ(timeZoneOfVariable(value).offsetFromUtc(utc), local.tm_gmtoff)
                << value << ' ' << moment;
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
