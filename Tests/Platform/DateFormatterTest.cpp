// SPDX-License-Identifier: MIT
#include "Platform/Text/DateFormatter.h"
#include "Platform/Text/RelativeDateTimeFormatter.h"

#include <gtest/gtest.h>

#include <limits>

using namespace quor::platform;
using namespace Qt::StringLiterals;

namespace {

using Style = DateFormatter::Style;

TEST(DateFormatter, WritesAsTheUserDoes)
{
    const QLocale before;
    const QByteArray zoneBefore = qgetenv("TZ");
    DateFormatter formatter(Style::none, Style::short_);
    const std::tuple<const char*, const char*, Style, Style, QString> cases[]
        = {{"en_US", "UTC", Style::none, Style::short_, u"10:13\u202FPM"_s},
            {"de_DE", "UTC", Style::none, Style::short_, u"22:13"_s},
            {"de_DE", "Europe/Berlin", Style::none, Style::short_, u"23:13"_s},
            {"de_DE", "ABC-5:30", Style::none, Style::short_, u"03:43"_s}, // a rule without a name
            {"en_US", "Europe/Dublin", Style::none, Style::full, u"10:13:20\u202FPM Greenwich Mean Time"_s},
            {"de_DE", "Europe/Berlin", Style::short_, Style::none, u"14.11.23"_s},
            {"en_US", "UTC", Style::medium, Style::medium, u"Nov 14, 2023, 10:13:20\u202FPM"_s},
            {"en_US", "UTC", Style::none, Style::none, QString()}};
    for (const auto& [locale, zone, date, time, text] : cases) {
        QLocale::setDefault(QLocale(QLatin1StringView(locale)));
        qputenv("TZ", zone);
        EXPECT_EQ(DateFormatter(date, time).string(dateFromSeconds(1'700'000'000)), text)
            << locale << ' ' << zone;
        if (date == Style::none && time == Style::short_) {
            EXPECT_EQ(formatter.string(dateFromSeconds(1'700'000'000)), text) << "one formatter follows";
        }
    }
    formatter.setLocale(QLocale(QLocale::German));
    formatter.setTimeZone(QTimeZone("Asia/Tokyo"));
    EXPECT_EQ(formatter.string(dateFromSeconds(0)), u"09:00") << "as set";
    for (const double odd : {1e300, -1e300, double(NAN), double(INFINITY)})
        EXPECT_EQ(formatter.string(dateFromSeconds(odd)), QString()) << odd;
    QLocale::setDefault(before);
    zoneBefore.isNull() ? qunsetenv("TZ") : qputenv("TZ", zoneBefore);
}

TEST(DateFormatter, WritesTimesOfTheRegionThatTheUserChoseForThem)
{
    const QByteArray before = qgetenv("LC_ALL");
    QLocale::setDefault(QLocale::system());
    DateFormatter formatter(Style::none, Style::short_);
    formatter.setTimeZone(QTimeZone::utc());
    const QString texts[] = {u"22:13"_s, u"10:13\u202FPM"_s};
    for (const QString& text : texts) {
        qunsetenv("LC_ALL");
        qputenv("LC_TIME", text == texts[0] ? "de_DE.UTF-8" : "en_US.UTF-8");
        EXPECT_EQ(formatter.string(dateFromSeconds(1'700'000'000)), text);
    }
    qunsetenv("LC_TIME");
    before.isNull() ? qunsetenv("LC_ALL") : qputenv("LC_ALL", before);
}

TEST(RelativeDateTimeFormatter, PicksTheLargestUnitThatFits)
{
    RelativeDateTimeFormatter formatter;
    formatter.setUnitsStyle(RelativeDateTimeFormatter::UnitsStyle::short_);
    formatter.setFormattingContext(RelativeDateTimeFormatter::FormattingContext::standalone);
    const std::tuple<double, QString, QString> cases[] = {{-300, u"5 min. ago"_s, u"vor 5 Min."_s},
        {300, u"in 5 min."_s, u"in 5 Min."_s}, {-5400, u"1 hr. ago"_s, u"vor 1 Std."_s},
        {-0.4, u"in 0 sec."_s, u"in 0 Sek."_s}, {-59, u"59 sec. ago"_s, u"vor 59 Sek."_s},
        {86400, u"in 1 day"_s, u"in 1 Tag"_s}, // numeric: not "tomorrow"
        {-8 * 86400, u"1 wk. ago"_s, u"vor 1 Woche"_s}, {NAN, QString(), QString()}};
    for (const auto& [interval, english, german] : cases) {
        formatter.setLocale(QLocale(u"en_US"_s));
        EXPECT_EQ(formatter.localizedString(interval), english) << interval;
        formatter.setLocale(QLocale(u"de_DE"_s));
        EXPECT_EQ(formatter.localizedString(interval), german) << interval;
    }
    EXPECT_GT(formatter.localizedString(1e300).size(), 300) << "longer than the usual buffer";
    formatter.setDateTimeStyle(RelativeDateTimeFormatter::DateTimeStyle::named);
    EXPECT_EQ(formatter.localizedString(86400), u"morgen");
}

} // namespace
