// SPDX-License-Identifier: MIT
#include "ToolKit/Formatting/DurationFormatter.h"

#include <QLocale>

#include <gtest/gtest.h>

#include <limits>
#include <ostream>

using namespace Qt::StringLiterals;
using quor::toolkit::DurationFormatter;

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

class Language final {
public:
    explicit Language(const QString& name) { QLocale::setDefault(QLocale(name)); }
    ~Language() { QLocale::setDefault(before_); }

private:
    QLocale before_;
};

TEST(DurationFormatter, ClockForm)
{
    const Language english(u"en_US"_s);
    struct Case {
        double duration;
        const char* text;
        double workingDay = 0; // 0: none asked for
        bool minutes = true;
        bool seconds = false;
    };
    for (const Case& c : std::initializer_list<Case>{
             {0, "00:00"},
             {-0.0, "00:00"},
             {0, "00", 0, false},
             {59.9, "00:00"},
             {-30, "-00:00"},
             {-5400, "-01:30"},
             {90000, "25:00"},
             {360000, "100:00"},
             {5425.9, "01:30:25", 0, true, true},
             {5425, "01", 0, false, true},
             {3599.9999999999995, "00:59:59", 0, true, true},
             {37800, "1d 02:30", 28800},
             {-37800, "-1d 02:30", 28800},
             {3600, "01:00", 28800},
             {28800, "1d 00", 28800, false},
             {0.3, "2d 00:00:00", 0.1, true, true},
             {3600, "01:00", -28800},
             {3600, "01:00", notANumber},
             {3600, "01:00", infinity},
             {infinity, "00:00", 28800},
             {-infinity, "00:00"},
             {notANumber, "00:00"},
             {3.6e22, "9223372036854775807:00"},
             {1e300, "9223372036854775807d 00:00", 1e-300},
         }) {
        DurationFormatter formatter;
        formatter.configure(false, false, c.workingDay);
        EXPECT_EQ(
            formatter.clockString(c.workingDay != 0, c.minutes, c.seconds, c.duration).toStdString(), c.text)
            << c.duration << " in days of " << c.workingDay;
    }
}

TEST(DurationFormatter, DecimalFormInTheUsersLanguage)
{
    struct Case {
        double duration;
        bool days;
        const char* english;
        const char* german;
    };
    for (const Case& c : std::initializer_list<Case>{
             {5400, false, "1.5 h", "1,5 h"},
             {5000, false, "1.39 h", "1,39 h"},
             {4500, false, "1.25 h", "1,25 h"},
             {450, false, "0.12 h", "0,12 h"}, // 0.125, half to even
             {1350, false, "0.38 h", "0,38 h"}, // 0.375
             {-5400, false, "-1.5 h", "-1,5 h"},
             {-1, false, "0 h", "0 h"},
             {14400, true, "0.5 d", "0,5 T"},
             {3600.0 * 12345, false, "12,345 h", "12.345 h"},
             {infinity, false, "0 h", "0 h"},
             {notANumber, true, "0 d", "0 T"},
         }) {
        for (const bool inGerman : {false, true}) {
            const Language language(inGerman ? u"de_DE"_s : u"en_US"_s);
            DurationFormatter formatter;
            formatter.configure(c.days, true, 28800);
            EXPECT_EQ(formatter.string(c.duration, false).toStdString(), inGerman ? c.german : c.english);
        }
    }
    const Language english(u"en_US"_s);
    DurationFormatter formatter;
    for (const double unset : {0.0, -1.0, notANumber, infinity}) {
        formatter.configure(true, true, unset);
        EXPECT_EQ(formatter.string(5400, true), u"1.5 h"_s) << "hours for a working day of " << unset;
    }
    EXPECT_EQ(formatter.decimalString(false, false, 0, 5400), u"2"_s);
    EXPECT_EQ(formatter.percentageFormatter().maximumFractionDigits(), 0) << "kept from the last use";
}

TEST(DurationFormatter, ReadsBothForms)
{
    struct Case {
        const char16_t* text;
        std::optional<double> english;
        std::optional<double> german;
    };
    constexpr double workingDay = 28800;
    const std::nullopt_t none = std::nullopt;
    for (const Case& c : std::initializer_list<Case>{
             {u"", none, none},
             {u"1:30", 5400, 5400},
             {u" 1 :\u00a0\u202f30\t", 5400, 5400},
             {u"1:30:59", 5400, 5400},
             {u"1:", none, none},
             {u":30", none, none},
             {u"1:30h", none, none},
             {u"2 h", 7200, 7200},
             {u"2d", 2 * workingDay, none},
             {u"2T", none, 2 * workingDay},
             {u"2d 1:30", 2 * workingDay + 5400, none},
             {u"2T 1:30", none, 2 * workingDay + 5400},
             {u"1d2d3", workingDay + 7200, none},
             {u"d1:30", none, none},
             {u"2d:30", none, none},
             {u"1.5", 5400, none},
             {u"1,5 h", none, 5400},
             {u"-1:30", -1800, -1800},
             {u"1:30x", none, none},
             {u"1e999", none, none},
             {u"NaN", none, none},
             {u"∞", none, none},
         }) {
        for (const bool inGerman : {false, true}) {
            const Language language(inGerman ? u"de_DE"_s : u"en_US"_s);
            EXPECT_EQ(DurationFormatter().duration(QString(c.text), 2), inGerman ? c.german : c.english)
                << QString(c.text).toStdString() << (inGerman ? " in German" : "");
        }
    }
}

TEST(DurationFormatter, SettingsChooseTheFormAndOnlyNumbersHaveText)
{
    const Language english(u"en_US"_s);
    DurationFormatter formatter;
    EXPECT_EQ(formatter.stringForObjectValue(37800), u"10:30"_s);
    formatter.configure(true, false, 28800);
    EXPECT_EQ(formatter.stringForObjectValue(37800.5), u"1d 02:30"_s);
    EXPECT_EQ(formatter.string(37800, false), u"1d 02"_s);
    formatter.configure(true, true, 28800);
    EXPECT_EQ(formatter.stringForObjectValue(qulonglong(28800)), u"1 d"_s);
    for (const QVariant& other : {QVariant(), QVariant(u"5"_s), QVariant(true), QVariant(QVariantList{1})})
        EXPECT_EQ(formatter.stringForObjectValue(other), std::nullopt) << other.typeName();
}

} // namespace
