// SPDX-License-Identifier: MIT
#include "ToolKit/Formatting/DistanceFormatter.h"
#include "ToolKit/Formatting/LocaleFacts.h"

#include <gtest/gtest.h>

#include <unicode/locid.h>

#include <cmath>
#include <limits>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;

namespace {

constexpr double mile = 1609.344;

TEST(DistanceFormatter, ReadsWhatItWroteInEveryLocale)
{
    int32_t count = 0;
    const icu::Locale* locales = icu::Locale::getAvailableLocales(count);
    ASSERT_GT(count, 700);
    for (int32_t i = 0; i < count; ++i) {
        const QString locale = QString::fromLatin1(locales[i].getName());
        const DistanceFormatter formatter(locale);
        const double halfDigit = usesMetricSystem(locale) ? 5 : 5 * mile / 1000;
        for (const double meters : {0.0, 1.0, 1000.0, mile, 2000.0, 2 * mile, 3456.0, 1234567.0, 4e10}) {
            const QString text = formatter.string(meters);
            EXPECT_NEAR(formatter.distance(text), meters, halfDigit * 1.001 + meters * 1e-9)
                << qPrintable(locale) << ": " << qPrintable(text);
        }
    }
}

TEST(DistanceFormatter, WritesTheUsersUnit)
{
    struct Case {
        const char* locale;
        double meters;
        const char* text;
    };
    for (const Case& c : std::initializer_list<Case>{{"de_DE", 1500, "1,5 km"}, {"en_US", mile, "1 mi"},
             {"en_GB", 1500, "0.93 mi"}, {"de_DE", 1234567, "1234,57 km"}, {"en_US", 1e7, "6213.71 mi"},
             {"en_AU", -1, "0 km"}, {"en_AU", -1500, "-1.5 km"}, {"de_DE", 125, "0,12 km"},
             {"ar_EG", 1500, "١٫٥ كم"}, {"de_DE", std::numeric_limits<double>::quiet_NaN(), ""},
             {"de_DE", -std::numeric_limits<double>::infinity(), ""}})
        EXPECT_EQ(DistanceFormatter(QString::fromLatin1(c.locale)).string(c.meters).toStdString(), c.text)
            << c.locale;
    const DistanceFormatter formatter(u"de_DE"_s);
    for (const QVariant& other : {QVariant(), QVariant(u"5"_s), QVariant(true), QVariant(QVariantList{1})})
        EXPECT_EQ(formatter.stringForObjectValue(other), u"0 km"_s) << other.typeName();
    EXPECT_EQ(formatter.stringForObjectValue(1500), u"1,5 km"_s);
}

TEST(DistanceFormatter, ReadsUnitsInTheUsersWordsAndInEnglish)
{
    struct Case {
        const char* locale;
        const char* text;
        double meters;
    };
    for (const Case& c : std::initializer_list<Case>{{"de_DE", "12", 12000}, {"en_US", "12", 12 * mile},
             {"de_DE", " 1,5\u00a0KM ", 1500}, {"de_DE", "1.500 m", 1500}, {"de_DE", "1.5 km", 1500},
             {"de_DE", "2 Kilometer", 2000}, {"de_DE", "3 miles", 3 * mile}, {"de_DE", "1 Meile", mile},
             {"fr_FR", "1 234,5 mètres", 1234.5}, {"fr_FR", "2 kilomètres", 2000}, {"ja_JP", "５㎞", 5000},
             {"en_US", "5kilometres", 5000}, {"en_US", "5 km", 5000}, {"en_US", "1,000 ft", 304.8},
             {"en_US", "1 foot", 0.3048}, {"en_US", "10 feet", 3.048}, {"en_US", "100 yd", 91.44},
             {"en_US", "1 yard", 0.9144}, {"en_US", "3 yards", 2.7432}, {"en_US", "7 m", 7},
             {"en_US", "7 Meters", 7}, {"en_US", ".5 mi", mile / 2}, {"ar_EG", "١٢", 12000}})
        EXPECT_NEAR(DistanceFormatter(QString::fromLatin1(c.locale)).distance(QString::fromUtf8(c.text)),
            c.meters, 1e-6)
            << c.locale << ' ' << c.text;
    for (const QString& text : {u""_s, u" "_s, u"abc"_s, u"km"_s, u"-5"_s, u"-5 km"_s, u"5 kmx"_s,
             u"5 6 km"_s, u"1,50,0 km"_s, u"1.2.3"_s, u"∞ km"_s, u"NaN"_s, u"1e999 km"_s, QString(2000, u'9'),
             u"5 km 3 m"_s, u"km 5 km"_s, QString(QChar(0xD83D)), u"5\0km"_s}) {
        for (const auto& locale : {u"de_DE"_s, u"en_US"_s})
            EXPECT_LT(DistanceFormatter(locale).distance(text), 0) << qPrintable(text);
    }
}

TEST(DistanceFormatter, FollowsTheDefaultLocale)
{
    const QLocale before;
    const DistanceFormatter formatter;
    for (const auto& [locale, text] : std::initializer_list<std::pair<QLocale, QString>>{
             {QLocale(u"de_DE"_s), u"1,61 km"_s}, {QLocale(u"en_US"_s), u"1 mi"_s}, {QLocale::c(), u"1 mi"_s},
             {QLocale(u"fr_CA"_s), u"1,61 km"_s}}) {
        QLocale::setDefault(locale);
        EXPECT_EQ(formatter.string(mile).replace(u'\u00a0', u' '), text);
        EXPECT_EQ(formatter.distance(u"1"_s), usesMetricSystem() ? 1000 : mile);
    }
    QLocale::setDefault(before);
}

TEST(LocaleFacts, AreToldOfAnyIdentifier)
{
    struct Case {
        QString identifier;
        bool isMetric;
        const char* language;
        const char* country;
    };
    for (const Case& c : {Case{u"de_AT"_s, true, "de", "AT"}, {u"fr"_s, true, "en", "DE"},
             {u"en-GB"_s, false, "en", "GB"}, {u"en"_s, false, "en", "DE"},
             {u"zh_Hant_TW"_s, true, "en", "TW"}, {u"es_US"_s, false, "en", "US"}, {{}, false, "en", "DE"},
             {u"no locale at all!"_s, false, "en", "DE"}}) {
        EXPECT_EQ(usesMetricSystem(c.identifier), c.isMetric) << qPrintable(c.identifier);
        EXPECT_EQ(languageCodeOrEnglish(c.identifier).toStdString(), c.language) << qPrintable(c.identifier);
        EXPECT_EQ(countryCodeOrDefault(c.identifier).toStdString(), c.country) << qPrintable(c.identifier);
    }
    EXPECT_EQ(localeIdentifier(QLocale(QLocale::Chinese, QLocale::Taiwan)), u"zh_Hant_TW");
    EXPECT_EQ(countryCodeOrDefault(localeIdentifier(QLocale(u"fr_FR"_s))), u"FR");
}

} // namespace
