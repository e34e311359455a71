// SPDX-License-Identifier: MIT
#include "ToolKit/Dates/DateOperations.h"

#include <QDate>

#include <gtest/gtest.h>

#include <unicode/calendar.h>

#include <array>
#include <ctime>
#include <memory>
#include <random>
#include <vector>

using namespace quor::toolkit;
using quor::platform::Calendar;
using quor::platform::dateFromSeconds;

namespace {

constexpr long daySeconds = 86'400;
constexpr long firstDay = -25'567; // 1900-01-01
constexpr long dayAfter = 47'847; // 2101-01-01

/// From the C library: the first and last second of each local day, none for a day that was left out.
class LocalDays final {
public:
    struct Day {
        long first = 0, last = -1;
    };

    /// Of all days from `begin` to before `end`. A day is a number of days since the beginning of 1970.
    LocalDays(long begin, long end)
        : base_(begin - 4)
        , days_(size_t(end - begin + 8))
    {
        long from = (begin - 2) * daySeconds;
        for (long step = 6 * 3600L, at = from; at < (end + 2) * daySeconds; at += step) {
            if (offset(at) == offset(at + step))
                continue;
            long before = at;
            for (long after = at + step; after - before > 1;)
                (offset((before + after) / 2) == offset(at) ? before : after) = (before + after) / 2;
            addPeriod(from, before, offset(at));
            from = before + 1;
        }
        addPeriod(from, (end + 2) * daySeconds, offset(from));
    }
    [[nodiscard]] const Day& operator[](long day) const { return days_[size_t(day - base_)]; }

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
            Day& day = days_[size_t(number - base_)];
            if (day.last < day.first)
                day.first = std::max(first, number * daySeconds - offset);
            day.last = std::min(last, (number + 1) * daySeconds - 1 - offset);
        }
    }

    long base_;
    std::vector<Day> days_;
};

TEST(DateAgreement, CountsDaysAsTheCLibraryDoes)
{
    const QByteArray before = qgetenv("TZ");
    // The last ones changed their rules in recent years, so older data than the system's would be wrong.
    const QByteArrayList thorough{"Europe/Berlin", "America/New_York", "America/Sao_Paulo",
        "America/Santiago", "America/Toronto", "America/St_Johns", "Asia/Beirut", "Pacific/Apia",
        "Pacific/Kwajalein", "Australia/Lord_Howe", "CET-1CEST,M3.5.0,M10.5.0/3", "Africa/Cairo",
        "Asia/Almaty", "Asia/Tehran"};
    for (const QByteArray& zone : thorough + QTimeZone::availableTimeZoneIds()) {
        if (zone.startsWith("UTC"))
            continue;
        qputenv("TZ", zone); // the shared calendar follows
        tzset();
        const bool isThorough = thorough.contains(zone);
        // To the C library, a rule begins in 1970. The other zones are compared in 2025 and 2026.
        const long begin = !isThorough ? 20'089 : zone.contains(',') ? 1 : firstDay;
        const long end = isThorough ? dayAfter : 20'819;
        const LocalDays days(begin, end);
        for (long day = begin, previous = day, odd = begin; day < end; ++day) {
            const auto [first, last] = days[day];
            if (last < first)
                continue;
            const Date earlier = dateFromSeconds(double(days[previous].last));
            previous = day;
            if (last - first != daySeconds - 1)
                odd = day;
            if (day > odd + 1 && day % 61 != 0) // all days are compared only where offsets change
                continue;
            for (const long within : {first, last}) {
                const Date moment = dateFromSeconds(double(within));
                ASSERT_TRUE(startOfDay(moment) == dateFromSeconds(double(first))
                    && endOfDay(moment) == dateFromSeconds(double(last))
                    && (day == begin
                        || (daysBetween(earlier, moment) == 1 && numberOfDays(moment, earlier) == 0)))
                    << zone.constData() << ", day " << day;
            }
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
    for (QDate day(1900, 1, 1); day < end && !HasFailure(); day = day.addDays(3)) {
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
                // In this order, since ICU moves its calendar by what it returns.
                const std::array expected{wanted(UCAL_EXTENDED_YEAR), wanted(UCAL_MONTH), wanted(UCAL_DATE)};
                EXPECT_EQ((std::array<int32_t, 3>{*found->year, *found->month, *found->day}), expected)
                    << zone << ' ' << name << ' ' << from << ' ' << to;
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
