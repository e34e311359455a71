// SPDX-License-Identifier: MIT
#include "ToolKit/Dates/DateOperations.h"
#include "Support/TestClock.h"

#include <QDateTime>

#include <gtest/gtest.h>

#include <array>
#include <limits>
#include <thread>
#include <vector>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;
using quor::platform::Calendar;
using quor::platform::dateFromSeconds;
using quor::platform::secondsSince1970;
using quor::test::TestClock;

namespace {

Calendar calendarOf(const char* locale, const char* zone)
{
    Calendar calendar;
    calendar.setLocale(QLocale(QLatin1StringView(locale)));
    calendar.setTimeZone(QTimeZone(zone));
    return calendar;
}

class DateOperationsTest : public testing::Test {
protected:
    DateOperationsTest() { setCalendar(calendarOf("de_DE", "Europe/Berlin")); }
    ~DateOperationsTest() override { setCalendar(Calendar()); }

    /// `text` is in ISO 8601; without an offset it is a local time of `zone`.
    static Date date(const QString& text, const char* zone = "Europe/Berlin")
    {
        QDateTime time = QDateTime::fromString(text, Qt::ISODateWithMs);
        if (time.timeSpec() == Qt::LocalTime)
            time = QDateTime(time.date(), time.time(), QTimeZone(zone));
        EXPECT_TRUE(time.isValid()) << qPrintable(text);
        return quor::platform::dateFromQDateTime(time).value_or(Date());
    }
};

using Operation = Date (*)(Date);
constexpr std::array<Operation, 16> operations{startOfYear, endOfYear, startOfQuarter, endOfQuarter,
    startOfMonth, endOfMonth, startOfWeek, endOfWeek, startOfDay, morning, noon, evening, endOfDay,
    roundedToMinute, withoutSeconds, roundedToHour};

TEST_F(DateOperationsTest, FindsBoundaries)
{
    const std::tuple<Operation, QString, QString> cases[] = {
        {startOfYear, u"2024-12-31T23:59:59.9"_s, u"2024-01-01T00:00:00"_s},
        {endOfYear, u"2024-01-01T00:00:00"_s, u"2024-12-31T23:59:59"_s},
        {endOfQuarter, u"2024-12-31T10:00:00"_s, u"2024-12-31T23:59:59"_s},
        {startOfMonth, u"2024-02-29T00:00:00"_s, u"2024-02-01T00:00:00"_s},
        {endOfMonth, u"2024-02-01T00:00:00"_s, u"2024-02-29T23:59:59"_s},
        {startOfWeek, u"2021-01-03T12:00:00"_s, u"2020-12-28T00:00:00"_s}, // week 53
        {endOfWeek, u"2024-12-29T12:00:00"_s, u"2024-12-29T23:59:59"_s},
        {endOfWeek, u"2024-03-25T12:00:00"_s, u"2024-03-31T23:59:59"_s},
        {morning, u"2024-03-31T01:00:00"_s, u"2024-03-31T09:00:00"_s}, // clocks put forward
        {evening, u"1969-12-31T23:00:00.7"_s, u"1969-12-31T18:00:00"_s},
        {roundedToMinute, u"2024-05-05T10:00:29.9"_s, u"2024-05-05T10:00:00"_s},
        {roundedToMinute, u"2024-05-05T10:00:30"_s, u"2024-05-05T10:01:00"_s},
        {roundedToHour, u"2024-05-05T10:29:59"_s, u"2024-05-05T10:00:00"_s},
        {roundedToHour, u"2024-05-05T10:30:00"_s, u"2024-05-05T11:00:00"_s},
        {roundedToHour, u"2024-05-05T23:45:00"_s, u"2024-05-06T00:00:00"_s},
        {roundedToHour, u"2024-03-31T01:45:00"_s, u"2024-03-31T03:00:00"_s},
        // Both occurrences of the hour that occurs twice.
        {withoutSeconds, u"2024-10-27T00:10:20Z"_s, u"2024-10-27T00:10:00Z"_s},
        {roundedToHour, u"2024-10-27T01:10:20Z"_s, u"2024-10-27T01:00:00Z"_s},
        {roundedToHour, u"2024-10-26T23:50:20Z"_s, u"2024-10-27T00:00:00Z"_s},
    };
    for (const auto& [operation, from, to] : cases)
        EXPECT_EQ(operation(date(from)), date(to)) << qPrintable(from + " -> "_L1 + to);
    setCalendar(calendarOf("en_US", "Europe/Berlin"));
    EXPECT_EQ(startOfWeek(date(u"2024-05-04T12:00:00"_s)), date(u"2024-04-28T00:00:00"_s)) << "from Sunday";
    Calendar imperial = calendarOf("ja_JP", "Asia/Tokyo");
    imperial.setIdentifier("japanese");
    setCalendar(imperial);
    const Date lastOfHeisei = date(u"2019-04-30T12:00:00"_s, "Asia/Tokyo");
    EXPECT_EQ(startOfYear(lastOfHeisei), date(u"2019-01-01T00:00:00"_s, "Asia/Tokyo"));
    EXPECT_FALSE(isSameYear(date(u"1993-05-05T12:00:00"_s), date(u"2023-05-05T12:00:00"_s))) << "5 and 5";
}

TEST_F(DateOperationsTest, ComparesAndCounts)
{
    const struct {
        QString from, to;
        bool sameDay, sameWeek, sameMonth, sameYear;
        int between, days, weeks, months;
    } cases[] = {
        {u"2024-05-05T00:00:00"_s, u"2024-05-05T23:59:59"_s, true, true, true, true, 0, 1, 1, 1},
        {u"2024-05-05T23:59:59"_s, u"2024-05-06T00:00:00"_s, false, false, true, true, 1, 2, 1, 1},
        {u"2024-05-06T01:00:00"_s, u"2024-05-04T23:00:00"_s, false, false, true, true, -2, -1, 1, 1},
        {u"2023-05-10T10:00:00"_s, u"2024-05-10T09:00:00"_s, false, true, false, false, 366, 367, 53, 13},
        {u"2024-01-31T10:00:00"_s, u"2024-02-29T09:00:00"_s, false, false, false, true, 29, 30, 5, 2},
        {u"2024-03-30T23:00:00"_s, u"2024-04-01T01:00:00"_s, false, false, false, true, 2, 3, 1, 1},
        {u"2024-05-31T10:00:00"_s, u"2024-02-29T10:00:00"_s, false, false, false, true, -92, -91, -12, -2},
    };
    for (const auto& each : cases) {
        const Date from = date(each.from);
        const Date to = date(each.to);
        EXPECT_EQ(std::tuple(isSameDay(from, to), isSameWeek(from, to), isSameMonth(from, to),
                      isSameYear(from, to), daysBetween(from, to), numberOfDays(from, to),
                      numberOfWeeks(from, to), numberOfMonths(from, to)),
            std::tuple(each.sameDay, each.sameWeek, each.sameMonth, each.sameYear, each.between, each.days,
                each.weeks, each.months))
            << qPrintable(each.from + " -> "_L1 + each.to);
        int seen = 0;
        forEachDay(
            from, to, [&](Date day) { EXPECT_EQ(day, noon(adding(from, seen++, DurationInterval::day))); });
        EXPECT_EQ(seen, std::max(each.days, 0));
    }
}

TEST_F(DateOperationsTest, CountsOnWhereNoonOrTheFirstMidnightOfAMonthIsSkipped)
{
    setCalendar(calendarOf("de_DE", "Africa/Casablanca"));
    const Date day = date(u"1967-06-03T00:00:00Z"_s);
    const Date next = day + std::chrono::days(1);
    EXPECT_EQ(daysBetween(day, next), 1);
    EXPECT_EQ(numberOfDays(next, day), 0);
    std::vector<Date> noons;
    forEachDay(day, next, [&](Date noon) { noons.push_back(noon); });
    EXPECT_EQ(noons, (std::vector{date(u"1967-06-03T12:00:00Z"_s), date(u"1967-06-04T11:00:00Z"_s)}));
    setCalendar(calendarOf("de_DE", "Africa/Algiers"));
    for (int again = 0; again < 2; ++again)
        EXPECT_EQ(endOfMonth(date(u"1981-05-02T12:00:00Z"_s)), date(u"1981-05-31T22:59:59Z"_s));
}

TEST_F(DateOperationsTest, Adds)
{
    const TestClock clock;
    const std::tuple<DurationInterval, qint64, QString> cases[] = {
        {DurationInterval::year, 1, u"2025-01-31T02:30:00.25"_s},
        {DurationInterval::quarter, -1, u"2023-10-31T02:30:00.25"_s},
        {DurationInterval::month, 1, u"2024-02-29T02:30:00.25"_s},
        {DurationInterval::month, -11, u"2023-02-28T02:30:00.25"_s},
        {DurationInterval::week, 5, u"2024-03-06T02:30:00.25"_s},
        {DurationInterval::day, 60, u"2024-03-31T03:30:00.25"_s} // skipped
    };
    const Date start = date(u"2024-01-31T02:30:00.25"_s);
    for (const auto& [interval, value, to] : cases)
        EXPECT_EQ(adding(start, value, interval, clock), date(to)) << qPrintable(to);
    for (int interval = 0; interval < 5; ++interval) {
        for (const qint64 value : {qint64(1) << 30, -(qint64(1) << 62), std::numeric_limits<qint64>::min()})
            EXPECT_EQ(adding(start, value, *durationInterval(interval), clock), clock.now())
                << interval << ' ' << value;
    }
    EXPECT_FALSE(durationInterval(5) || durationInterval(-1));
}

TEST_F(DateOperationsTest, ReturnsValues)
{
    const Date sunday = date(u"2024-05-05T10:00:00.5"_s);
    const TestClock clock(secondsSince1970(sunday));
    const auto components = dateComponents(sunday);
    EXPECT_EQ(std::tuple(components.year, components.day, components.weekdayOrdinal, components.weekOfYear,
                  components.era),
        std::tuple(2024, 5, 1, 18, std::nullopt));
    EXPECT_EQ(quarterIndex(sunday), 1);
    EXPECT_TRUE(isWeekend(sunday) && isFirstWeekdayNumber(sunday) && !isLastWeekdayNumber(sunday));
    EXPECT_TRUE(isLastWeekdayNumber(adding(sunday, -1, DurationInterval::day)));
    EXPECT_FALSE(hasSeconds(sunday));
    EXPECT_TRUE(
        isToday(endOfDay(sunday), clock) && !isToday(adding(sunday, 1, DurationInterval::day), clock));
    EXPECT_TRUE(isPast(startOfDay(sunday), clock) && !isPast(sunday, clock));
    for (const auto& [locale, symbol] : {std::pair("de_DE", u"H"_s), {"en_US", u"h"_s}, {"en_GB", u"H"_s},
             {"ko_KR", u"h"_s}, {"ar_EG", u"h"_s}, {"fr_CA", u"H"_s}}) {
        setCalendar(calendarOf(locale, "UTC"));
        EXPECT_EQ(hourFormatSymbol(), symbol) << locale;
    }
}

TEST_F(DateOperationsTest, SaysHowFarAway)
{
    const QLocale before;
    const TestClock clock(secondsSince1970(date(u"2024-05-31T12:00:00"_s)));
    const std::pair<QString, QString> cases[] = {{u"2024-05-31T12:00:00"_s, u"in 0 minutes"_s},
        {u"2024-05-31T11:59:00"_s, u"1 minute ago"_s}, {u"2024-05-31T13:30:00"_s, u"in 1 hour"_s},
        {u"2024-05-30T12:00:01"_s, u"23 hours ago"_s}, {u"2024-05-17T12:00:00"_s, u"2 weeks ago"_s},
        {u"2024-05-16T12:00:00"_s, u"15 days ago"_s}, {u"2024-06-07T12:00:00"_s, u"in 1 week"_s},
        {u"2024-04-21T12:00:00"_s, u"1 month ago"_s}, // 40 days
        {u"2025-04-30T12:00:00"_s, u"in 10 months"_s}, {u"2023-05-31T12:00:00"_s, u"1 year ago"_s},
        {u"3124-05-31T12:00:00"_s, u"in 1,100 years"_s}};
    QLocale::setDefault(QLocale(QLocale::English));
    for (const auto& [moment, text] : cases)
        EXPECT_EQ(relativeText(date(moment), clock), text);
    QLocale::setDefault(QLocale(QLocale::German));
    EXPECT_EQ(relativeText(date(cases[0].first), clock), u"in 0 Minuten"_s);
    QLocale::setDefault(before);
}

TEST_F(DateOperationsTest, TakesAnyMoment)
{
    for (const double seconds :
        {quor::platform::furthestSeconds, 1e13, 1e300, double(INFINITY), double(NAN)}) {
        for (const double sign : {1.0, -1.0}) {
            const Date odd = dateFromSeconds(sign * seconds);
            const bool hasPlace = seconds == quor::platform::furthestSeconds;
            for (const Operation operation : operations) {
                const double result = secondsSince1970(operation(odd));
                EXPECT_TRUE(result == sign * seconds || std::isnan(seconds)
                    || (hasPlace && std::fabs(result - sign * seconds) <= 366 * 86400.0));
            }
            const Date today = dateFromSeconds(0);
            EXPECT_EQ(isSameDay(odd, odd), hasPlace);
            EXPECT_EQ(numberOfDays(odd, odd), hasPlace ? 1 : 0);
            EXPECT_EQ(daysBetween(today, odd), hasPlace ? int(sign * 92'592'592.6) + (sign < 0 ? -1 : 0) : 0);
            EXPECT_EQ(relativeText(odd).isEmpty(), !hasPlace);
            EXPECT_EQ(isWeekend(odd) || dateComponents(odd).year.has_value(), hasPlace);
            forEachDay(odd, odd, [&](Date) { EXPECT_TRUE(hasPlace); });
        }
    }
}

TEST_F(DateOperationsTest, SharesItsCalendarAmongThreads)
{
    const Date start = date(u"2024-05-05T10:00:00"_s);
    std::vector<std::thread> threads;
    threads.reserve(3);
    for (int thread = 0; thread < 3; ++thread) {
        threads.emplace_back([=] {
            for (int day = 0; day < 1000; ++day) {
                const Date moment = adding(start, day, DurationInterval::day);
                EXPECT_LE(std::abs(numberOfDays(start, moment) - day - 1), 1);
            }
        });
    }
    for (int change = 0; change < 300; ++change)
        setCalendar(calendarOf(change % 2 == 0 ? "en_US" : "fa_IR", change % 3 == 0 ? "Asia/Tehran" : "UTC"));
    for (auto& thread : threads)
        thread.join();
}

} // namespace
