// SPDX-License-Identifier: MIT
#include "ToolKit/Dates/DateOperations.h"

#include <QDate>

#include <gtest/gtest.h>

#include <unicode/calendar.h>

#include <ctime>
#include <memory>
#include <random>
#include <vector>

using namespace quor::toolkit;
using quor::platform::Calendar;
using quor::platform::dateFromSeconds;
using quor::platform::secondsSince1970;

namespace {

constexpr long daySeconds = 86'400;
constexpr long firstDay = -25'567; // 1900-01-01
constexpr long dayAfter = 47'847; // 2101-01-01

/// From the C library: the first and last second of each local day, none for a day that was left out.
class LocalDays final {
public:
    LocalDays()
    {
        long from = (firstDay - 2) * daySeconds;
        for (long step = 6 * 3600, at = from; at < (dayAfter + 2) * daySeconds; at += step) {
            if (offset(at) == offset(at + step))
                continue;
            long before = at;
            for (long after = at + step; after - before > 1;)
                (offset((before + after) / 2) == offset(at) ? before : after) = (before + after) / 2;
            addPeriod(from, before, offset(at));
            from = before + 1;
        }
        addPeriod(from, (dayAfter + 2) * daySeconds, offset(from));
    }

    struct Day {
        long first = 0, last = -1;
    };
    [[nodiscard]] const Day& operator[](long day) const { return days_[size_t(day - firstDay + 4)]; }

private:
    static long offset(std::time_t moment)
    {
        std::tm local{};
        localtime_r(&moment, &local);
        return local.tm_gmtoff;
    }

    void addPeriod(long first, long last, long offset)
    {
        const auto dayOf
            = [&](long moment) { return (moment + offset + 100'000 * daySeconds) / daySeconds - 100'000; };
        for (long number = dayOf(first); number <= dayOf(last); ++number) {
            Day& day = days_[size_t(number - firstDay + 4)];
            if (day.last < day.first)
                day.first = std::max(first, number * daySeconds - offset);
            day.last = std::min(last, (number + 1) * daySeconds - 1 - offset);
        }
    }

    std::vector<Day> days_ = std::vector<Day>(dayAfter - firstDay + 8);
};

TEST(DateAgreement, CountsDaysAsTheCLibraryDoes)
{
    const QByteArray before = qgetenv("TZ");
    // The last ones changed their rules in recent years, so older data than the system's would be wrong.
    for (const char* const zone :
        {"Europe/Berlin", "America/New_York", "America/Sao_Paulo", "America/Santiago", "America/Toronto",
            "America/St_Johns", "Asia/Beirut", "Pacific/Apia", "Pacific/Kwajalein", "Australia/Lord_Howe",
            "CET-1CEST,M3.5.0,M10.5.0/3", "Africa/Cairo", "Asia/Almaty", "Asia/Tehran"}) {
        qputenv("TZ", zone); // the shared calendar follows
        tzset();
        const LocalDays days;
        int wrong = 0;
        // To the C library, a rule begins in 1970.
        const long begin = QByteArrayView(zone).contains(',') ? 1 : firstDay;
        for (long day = begin, previous = day; day < dayAfter && wrong < 3; ++day) {
            const auto [first, last] = days[day];
            if (last < first)
                continue;
            const Date within = dateFromSeconds(double(day % 3 == 0 ? first : last));
            const Date earlier = dateFromSeconds(double(days[previous].last));
            const bool isOdd = last - first != daySeconds - 1;
            const bool isRight
                = ((day % 2 != 0 && !isOdd) || startOfDay(within) == dateFromSeconds(double(first)))
                && ((day % 2 == 0 && !isOdd) || endOfDay(within) == dateFromSeconds(double(last)))
                && ((day % 16 != 0 && !isOdd)
                    || (daysBetween(earlier, within) == 1 && numberOfDays(within, earlier) == 0));
            EXPECT_TRUE(isRight) << zone << ", day " << day;
            wrong += isRight ? 0 : 1;
            previous = day;
        }
    }
    before.isNull() ? qunsetenv("TZ") : qputenv("TZ", before);
    tzset();
}

TEST(DateAgreement, StartsTheDaysOfRecentYearsInEveryZoneAsTheCLibraryDoes)
{
    const QByteArray before = qgetenv("TZ");
    for (const QByteArray& zone : QTimeZone::availableTimeZoneIds()) {
        if (zone.startsWith("UTC"))
            continue;
        qputenv("TZ", zone);
        tzset();
        const auto dayOf = [](double moment) {
            std::tm local{};
            const auto second = std::time_t(moment);
            localtime_r(&second, &local);
            return std::pair(local.tm_year, local.tm_yday);
        };
        for (double moment = 1'735'732'800; moment < 1'798'804'800; moment += daySeconds) { // 2025 and 2026
            const double start = secondsSince1970(startOfDay(dateFromSeconds(moment)));
            const double end = secondsSince1970(endOfDay(dateFromSeconds(moment)));
            const bool isRight = start <= moment && moment <= end && dayOf(start) == dayOf(moment)
                && dayOf(start - 1) != dayOf(moment) && dayOf(end) == dayOf(moment)
                && dayOf(end + 1) != dayOf(moment);
            ASSERT_TRUE(isRight) << zone.constData() << ' ' << qint64(moment);
        }
    }
    before.isNull() ? qunsetenv("TZ") : qputenv("TZ", before);
    tzset();
}

TEST(DateAgreement, FindsWeeksMonthsAndYearsAsQtDoes)
{
    Calendar iso;
    iso.setLocale(QLocale(QLocale::German, QLocale::Germany));
    iso.setTimeZone(QTimeZone::utc());
    setCalendar(iso);
    const auto at = [](QDate day, double seconds) {
        return dateFromSeconds(double(QDate(1970, 1, 1).daysTo(day) * daySeconds) + seconds);
    };
    const QDate end(2101, 1, 1);
    for (QDate day(1900, 1, 1); day < end && !HasFailure(); day = day.addDays(1)) {
        const Date moment = at(day, day.day() * 2500.5);
        ASSERT_EQ(weekOfYear(moment), day.weekNumber()) << qPrintable(day.toString());
        ASSERT_EQ(startOfWeek(moment), at(day.addDays(1 - day.dayOfWeek()), 0));
        ASSERT_EQ(endOfMonth(moment), at(day.addDays(day.daysInMonth() - day.day()), daySeconds - 1));
        ASSERT_EQ(startOfQuarter(moment), at(QDate(day.year(), (day.month() - 1) / 3 * 3 + 1, 1), 0));
        ASSERT_EQ(adding(moment, -7, DurationInterval::quarter), at(day.addMonths(-21), day.day() * 2500.5));
    }
    setCalendar(Calendar());
}

TEST(DateAgreement, MeasuresAsIcuDoes)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<double> moments(firstDay * daySeconds, dayAfter * daySeconds);
    using Unit = Calendar::Unit;
    for (const char* const zone : {"Europe/Berlin", "Pacific/Apia", "America/Sao_Paulo"}) {
        for (const char* const name : {"gregorian", "japanese", "hebrew", "islamic", "chinese"}) {
            Calendar calendar;
            calendar.setTimeZone(QTimeZone(zone));
            calendar.setIdentifier(name);
            UErrorCode status = U_ZERO_ERROR;
            const std::unique_ptr<icu::Calendar> icuCalendar(
                icu::Calendar::createInstance(icu::TimeZone::createTimeZone(zone),
                    icu::Locale("en", nullptr, nullptr, ("calendar=" + std::string(name)).c_str()), status));
            for (int pair = 0; pair < 50; ++pair) {
                const double from = std::floor(moments(random));
                const double to = pair % 2 == 0 ? std::floor(moments(random)) : from + (pair - 25) * 86'400.0;
                icuCalendar->setTime(from * 1000, status);
                const auto wanted = [&](UCalendarDateFields field) {
                    return icuCalendar->fieldDifference(to * 1000, field, status);
                };
                const auto found = calendar.difference(
                    {Unit::year, Unit::month, Unit::day}, dateFromSeconds(from), dateFromSeconds(to));
                ASSERT_TRUE(found);
                EXPECT_EQ(found->year, wanted(UCAL_EXTENDED_YEAR))
                    << zone << ' ' << name << ' ' << from << ' ' << to;
                EXPECT_EQ(found->month, wanted(UCAL_MONTH))
                    << zone << ' ' << name << ' ' << from << ' ' << to;
                EXPECT_EQ(found->day, wanted(UCAL_DATE)) << zone << ' ' << name << ' ' << from << ' ' << to;
            }
        }
    }
}

TEST(DateAgreement, KnowsTheWeekOfEveryLocaleAsQtDoes)
{
    const Date sunday = dateFromSeconds(3.5 * daySeconds);
    for (const QLocale& locale :
        QLocale::matchingLocales(QLocale::AnyLanguage, QLocale::AnyScript, QLocale::AnyTerritory)) {
        Calendar calendar;
        calendar.setLocale(locale);
        calendar.setTimeZone(QTimeZone::utc());
        setCalendar(calendar);
        bool isAlike = calendar.firstWeekday() == locale.firstDayOfWeek() % 7 + 1;
        for (int day = 0; day < 7; ++day) {
            const bool isWorkday = locale.weekdays().contains(Qt::DayOfWeek(day == 0 ? 7 : day));
            isAlike = isAlike && isWeekend(adding(sunday, day, DurationInterval::day)) != isWorkday;
        }
        // Later data, in which China's week begins on Monday; and POSIX, where no region is meant.
        EXPECT_TRUE(isAlike || locale.territory() == QLocale::China || locale.language() == QLocale::C)
            << qPrintable(locale.name());
    }
    setCalendar(Calendar());
}

} // namespace
