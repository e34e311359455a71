// SPDX-License-Identifier: MIT
#include "ToolKit/Formatting/DistanceFormatter.h"
#include "ToolKit/Formatting/LocaleFacts.h"

#include <gtest/gtest.h>

#include <unicode/locid.h>

#include <cmath>

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
    for (const auto& [locale, meters, text] :
        std::initializer_list<std::tuple<const char*, double, const char*>>{{"de_DE", 1500, "1,5 km"},
            {"en_US", mile, "1 mi"}, {"en_GB", 1500, "0.93 mi"}, {"de_DE", 1234567, "1234,57 km"},
            {"en_AU", -1, "0 km"}, {"de_DE", 125, "0,12 km"}, {"ar_EG", 1500, "١٫٥ كم"},
            {"de_DE", std::nan(""), ""}})
        EXPECT_EQ(DistanceFormatter(QString::fromLatin1(locale)).string(meters).toStdString(), text)
            << locale;
    const DistanceFormatter formatter(u"de_DE"_s);
    EXPECT_EQ(formatter.stringForObjectValue(u"5"_s), u"0 km"_s);
    EXPECT_EQ(formatter.stringForObjectValue(1500), u"1,5 km"_s);
}

TEST(DistanceFormatter, ReadsUnitsInTheUsersWordsAndInEnglish)
{
    for (const auto& [locale, text, meters] :
        std::initializer_list<std::tuple<const char*, const char*, double>>{{"de_DE", "12", 12000},
            {"en_US", "12", 12 * mile}, {"de_DE", " 1,5\u00a0KM ", 1500}, {"de_DE", "1.500 m", 1500},
            {"de_DE", "1.500", 1.5e6}, {"de_DE", "3 miles", 3 * mile}, {"de_DE", "1 Meile", mile},
            {"fr_FR", "1 234,5 mètres", 1234.5}, {"ja_JP", "５㎞", 5000}, {"en_US", "5kilometres", 5000},
            {"en_US", "1,000 ft", 304.8}, {"en_US", "1 foot", 0.3048}, {"en_US", "3 yards", 2.7432},
            {"en_US", "7 m", 7}, {"en_US", ".5 mi", mile / 2}, {"en_US", "5'", 1.524},
            {"he_IL", "5 ק\"מ", 5000}, {"es_ES", "1.500 m", 1500}, {"de_CH", "1'500 m", 1500},
            {"de_AT", "1 500 m", 1500}, {"en_IN", "1,50,000 m", 150000}, {"my_MM", "1,500.5 ft", 457.3524},
            {"de_DE@measure=ussystem", "1,5", 1.5 * mile}, {"en_US_POSIX", "1,000 ft", 304.8},
            {"ar_EG", "1,5 كم", 1500}})
        EXPECT_NEAR(
            DistanceFormatter(QString::fromLatin1(locale)).distance(QString::fromUtf8(text)), meters, 1e-6)
            << locale << ' ' << text;
    for (const QString& text : {u""_s, u"km"_s, u"-5 km"_s, u"5 kmx"_s, u"5 6 km"_s, u"1.2.3"_s, u"∞ km"_s,
             u"NaN"_s, u"1e999 km"_s, QString(2000, u'9'), u"5 km 3 m"_s, QString(QChar(0xD83D)), u"5\0km"_s})
        EXPECT_LT(DistanceFormatter(u"en_US"_s).distance(text), 0) << qPrintable(text);
}

TEST(DistanceFormatter, ReadsNumbersByTheRulesOfOneLocale)
{
    for (const auto& [locale, texts] : std::initializer_list<std::pair<QString, QStringList>>{
             {u"de_DE"_s, {u"1.5"_s, u"1.5 km"_s, u"1.5 Kilometer"_s, u"1.50 miles"_s, u"1,500.5 m"_s}},
             {u"de_AT"_s, {u"1.500 m"_s}}, {u"fr_FR"_s, {u"1.234 m"_s}}, {u"de_CH"_s, {u"1,500 m"_s}},
             {u"en_US"_s, {u"1,5"_s, u"1,5 km"_s, u"1.500,5 m"_s}},
             {u"de_DE@measure=ussystem"_s, {u"1.5"_s, u"1.5 mi"_s}}}) {
        for (const QString& text : texts)
            EXPECT_LT(DistanceFormatter(locale).distance(text), 0)
                << qPrintable(locale) << ": " << qPrintable(text);
    }
}

TEST(DistanceFormatter, FollowsTheDefaultLocale)
{
    const QLocale before;
    const DistanceFormatter formatter;
    for (const QLocale& locale : {QLocale(u"de_DE"_s), QLocale(u"en_US"_s), QLocale::c()}) {
        QLocale::setDefault(locale);
        const bool isMetric = locale.country() == QLocale::Germany;
        EXPECT_EQ(formatter.string(mile), isMetric ? u"1,61 km"_s : u"1 mi"_s);
        EXPECT_EQ(formatter.distance(u"1"_s), isMetric ? 1000 : mile);
    }
    QLocale::setDefault(before);
}

TEST(LocaleFacts, AreKnownOfAnyIdentifier)
{
    for (const auto& [identifier, isMetric, language, country] :
        std::initializer_list<std::tuple<QString, bool, const char*, const char*>>{
            {u"de_AT"_s, true, "de", "AT"}, {u"fr"_s, true, "en", "DE"}, {u"en-GB"_s, false, "en", "GB"},
            {u"zh_Hant_TW"_s, true, "en", "TW"}, {u"no locale at all!"_s, false, "en", "DE"},
            {u"root"_s, false, "en", "DE"}, {u"de_DE_"_s + QString(3000, u'a'), false, "en", "DE"},
            {u"en_US@measure=metric"_s, true, "en", "US"}, {u"de-DE-u-ms-ussystem"_s, false, "de", "DE"}}) {
        EXPECT_EQ(usesMetricSystem(identifier), isMetric) << qPrintable(identifier);
        EXPECT_EQ(languageCodeOrEnglish(identifier).toStdString(), language) << qPrintable(identifier);
        EXPECT_EQ(countryCodeOrDefault(identifier).toStdString(), country) << qPrintable(identifier);
        EXPECT_EQ(DistanceFormatter(identifier).distance(u"2"_s), isMetric ? 2000 : 2 * mile);
    }
    EXPECT_EQ(localeIdentifier(QLocale(QLocale::Chinese, QLocale::Taiwan)), u"zh_Hant_TW");
    EXPECT_EQ(countryCodeOrDefault(localeIdentifier(QLocale(u"fr_FR"_s))), u"FR");
}

} // namespace
