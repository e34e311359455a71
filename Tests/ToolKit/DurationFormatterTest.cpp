// SPDX-License-Identifier: MIT
#include "ToolKit/Formatting/DurationFormatter.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <limits>

using namespace Qt::StringLiterals;
using quor::toolkit::DurationFormatter;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();
constexpr double day = 28800;

class DurationFormatterTest : public testing::Test {
protected:
    DurationFormatterTest() { speak(u"en_US"_s); }
    ~DurationFormatterTest() override { QLocale::setDefault(before_); }
    static void speak(const QString& locale) { QLocale::setDefault(QLocale(locale)); }
    const QLocale before_;
};

TEST_F(DurationFormatterTest, ClockFormCutsAndNeverOverflows)
{
    struct Case {
        double duration;
        const char* text;
        double workingDay = 0; // 0: without working days
        bool minutes = true;
        bool seconds = false;
    };
    for (const Case& each : std::initializer_list<Case>{{-0.0, "00:00"}, {59.9, "00:00"}, {-5400, "-01:30"},
             {360000, "100:00"}, {5425, "01", 0, false, true},
             {3599.9999999999995, "00:59:59", 0, true, true}, {-37800, "-1d 02:30", day},
             {28800, "1d 00", day, false}, {0.3, "2d 00:00:00", 0.1, true, true}, {3600, "01:00", -day},
             {3600, "01:00", notANumber}, {3600, "01:00", infinity}, {-infinity, "00:00"},
             {3.6e22, "9223372036854775807:00"}, {1e300, "9223372036854775807d 00:00", 1e-300}}) {
        DurationFormatter formatter;
        formatter.configure(false, false, each.workingDay);
        EXPECT_EQ(formatter.clockString(each.workingDay != 0, each.minutes, each.seconds, each.duration)
                      .toStdString(),
            each.text)
            << each.duration << " in days of " << each.workingDay;
    }
}

TEST_F(DurationFormatterTest, DecimalFormSpeaksTheUsersLanguage)
{
    for (const auto& [duration, workingDay, english, german] :
        std::initializer_list<std::tuple<double, double, const char*, const char*>>{
            {5000, 0, "1.39 h", "1,39 h"}, {450, 0, "0.12 h", "0,12 h"},
            {1350, 0, "0.38 h", "0,38 h"}, // 0.125 and 0.375: half to even
            {-5400, notANumber, "-1.5 h", "-1,5 h"}, {-1, 0, "0 h", "0 h"}, {14400, day, "0.5 d", "0,5 T"},
            {3600.0 * 12345, 0, "12,345 h", "12.345 h"}, {infinity, 0, "", ""}, {notANumber, day, "", ""}}) {
        for (const bool inGerman : {false, true}) {
            speak(inGerman ? u"de_DE"_s : u"en_US"_s);
            DurationFormatter formatter;
            formatter.configure(true, true, workingDay);
            EXPECT_EQ(formatter.string(duration, false).toStdString(), inGerman ? german : english);
        }
    }
}

TEST_F(DurationFormatterTest, ReadsBothForms)
{
    constexpr auto none = std::nullopt;
    for (const auto& [text, english, german] :
        std::initializer_list<std::tuple<const char*, std::optional<double>, std::optional<double>>>{
            {"", none, none}, {" 1 :\u00a0\u202f30\t", 5400, 5400}, {"1:30:59", 5400, 5400},
            {"1:", none, none}, {"1:30h", none, none}, {"2 h", 7200, 7200}, {"2d", 2 * day, none},
            {"2T 1:30", none, 2 * day + 5400}, {"1d2d3", day + 7200, none}, {"d1:30", none, none},
            {"1.5", 5400, none}, {"1,5 h", none, 5400}, {"-1:30", -1800, -1800}, {"1:30x", none, none},
            {"1e999", none, none}, {"∞", none, none}}) {
        for (const bool inGerman : {false, true}) {
            speak(inGerman ? u"de_DE"_s : u"en_US"_s);
            EXPECT_EQ(DurationFormatter().duration(QString::fromUtf8(text), 2), inGerman ? german : english)
                << text << (inGerman ? " in German" : "");
        }
    }
    // Other digits, signs and separators, among them blanks.
    for (const auto& locale : {u"ar_EG"_s, u"fa_IR"_s, u"fr_FR"_s, u"sv_SE"_s, u"de_CH"_s}) {
        speak(locale);
        const DurationFormatter formatter;
        const double duration = -12345.25 * 3600;
        EXPECT_EQ(formatter.duration(formatter.decimalString(false, true, 2, duration), 2), duration)
            << qPrintable(locale);
    }
}

TEST_F(DurationFormatterTest, OnlyNumbersHaveTextBySettings)
{
    DurationFormatter formatter;
    (void)formatter.decimalString(false, false, 5, 0);
    EXPECT_EQ(formatter.percentageFormatter().maximumFractionDigits(), 5) << "kept from the last call";
    formatter.configure(true, false, day);
    EXPECT_EQ(formatter.stringForObjectValue(37800.5), u"1d 02:30"_s);
    for (const QVariant& other : {QVariant(), QVariant(u"5"_s), QVariant(true)})
        EXPECT_EQ(formatter.stringForObjectValue(other), std::nullopt) << other.typeName();
}

} // namespace
