// SPDX-License-Identifier: MIT
#include "ToolKit/Formatting/MoneyFormatter.h"

#include <gtest/gtest.h>

#include <unicode/locid.h>
#include <unicode/ucurr.h>

#include <cmath>
#include <limits>

using quor::toolkit::MoneyFormatter;
using namespace Qt::StringLiterals;

namespace {

TEST(MoneyFormatter, ReadsWhatItWroteInEveryLocale)
{
    struct Currency {
        QString code;
        int digits;
    };
    const Currency currencies[] = {{u"EUR"_s, 2}, {u"USD"_s, 2}, {u"JPY"_s, 0}, {u"TND"_s, 3}, {u"CVE"_s, 2},
        {u"PEN"_s, 2}, {u"DKK"_s, 2}, {u"AED"_s, 2}, {u"QQQ"_s, 2}, {u""_s, 3}};
    int32_t count = 0;
    const icu::Locale* locales = icu::Locale::getAvailableLocales(count);
    ASSERT_GT(count, 700);
    int failures = 0;
    for (int32_t i = 0; i < count && failures < 20; ++i) {
        MoneyFormatter formatter(QString::fromLatin1(locales[i].getName()));
        for (const auto& [code, digits] : currencies) {
            formatter.setCurrencyCode(code);
            for (int n = 0; n < 20; ++n) {
                // 0, 1, 7, 50, ... up to ten digits
                const qint64 units = qint64(std::pow(7, n * 0.6)) * (n % 3 == 2 ? -1 : 1) - (n == 0 ? 1 : 0);
                const double amount = QString::number(units).toDouble() / std::pow(10, digits);
                const QString text = formatter.string(amount);
                if (formatter.amount(text) != amount) {
                    ++failures;
                    ADD_FAILURE() << locales[i].getName() << ' ' << qPrintable(code) << ' ' << amount << ": "
                                  << qPrintable(text) << " reads " << formatter.amount(text).value_or(NAN);
                }
            }
        }
    }
}

TEST(MoneyFormatter, WritesTheDigitsOfTheCurrency)
{
    constexpr double largest = std::numeric_limits<double>::max();
    for (const auto& [locale, code, amount, text] :
        std::initializer_list<std::tuple<const char*, const char*, double, const char*>>{
            {"de_DE", "EUR", 1234.5, "1.234,50\u00a0€"}, {"en_US", "eur", 1234.5, "€1,234.50"},
            {"ja_JP", "JPY", 1234.5, "￥1,234"}, {"en_US", "TND", 0.0005, "TND\u00a00.000"},
            {"en_US", "USD", -0.001, "$0.00"}, {"en_US", "USD", -1, "-$1.00"},
            {"en_US", "USD", 1.005, "$1.00"}, {"en_US", "", 1234.5, "1,234.5"}, {"en_US", "DOLLAR", 2, "2"},
            {"en_US", "QQQ", 2, "QQQ\u00a02.00"}, {"en_US", "USD", std::nan(""), "$0.00"},
            {"en_US", "USD", -INFINITY, "$0.00"}}) {
        MoneyFormatter formatter(QString::fromLatin1(locale));
        formatter.setCurrencyCode(QString::fromLatin1(code));
        EXPECT_EQ(formatter.string(amount).toStdString(), text);
        EXPECT_EQ(formatter.amount(formatter.string(largest)), largest);
    }
}

TEST(MoneyFormatter, ReadsWhatPeopleType)
{
    for (const auto& [locale, text, amount] :
        std::initializer_list<std::tuple<const char*, const char*, double>>{{"de_DE", "1.234,50 €", 1234.5},
            {"de_DE", "EUR 12", 12}, {"de_DE", "12 eur", 12}, {"de_DE", "12,-", 12}, {"de_DE", "12,– €", 12},
            {"en_US", "12.-", 12}, {"de_DE", "12,", 12}, {"de_DE", "-12 €", -12}, {"de_DE", "€ -12", -12},
            {"de_DE", "12-", -12}, {"sv_SE", "−12,50", -12.5}, {"en_US", "(5.00)", -5},
            {"en_US", "(€5.00)", -5}, {"de_DE", "(5,00)", 5}, {"de_DE", "1.5", 1.5}, {"de_DE", "1.500", 1500},
            {"de_DE", "1,234.50", 1234.5}, {"en_US", "1.234,50", 1234.5}, {"en_US", "12,50", 12.5},
            {"en_US", "1,50,000.5", 150000.5}, {"fr_FR", "1 234,50", 1234.5}, {"fr_FR", "1.234", 1.234},
            {"fr_CH", "12,50", 12.5}, {"fr_CH", "12.50", 12.5}, {"de_CH", "1'234.50", 1234.5},
            {"en_IN", "1,50,000", 150000}, {"de_DE", ",5", 0.5}, {"en_US", "$.5", 0.5}, {"en_US", "Rs.5", 5},
            {"en_US", "about 7 pounds 50", 750}, {"ar_EG", "١٬٢٣٤٫٥٠", 1234.5}, {"en_US", "١٢٣", 123},
            {"ar_EG", "12.50", 12.5}, {"ja_JP", "１２，３４５円", 12345}, {"en_US", "1 2 3", 123},
            {"en_US", "007", 7}, {"en_US", "5\n", 5}}) {
        const MoneyFormatter formatter(QString::fromLatin1(locale));
        EXPECT_EQ(formatter.amount(QString::fromUtf8(text)), amount) << locale << ": " << text;
    }
    const MoneyFormatter formatter(u"en_US"_s);
    for (const QString& text : {u""_s, u"  "_s, u"abc"_s, u"€"_s, u"-"_s, u"1.2.3"_s, u"∞"_s, u"NaN"_s,
             QString(100'000, u'7'), QString(100'000, u' '), u"1E999"_s + QString(400, u'9')})
        EXPECT_EQ(formatter.amount(text), std::nullopt) << qPrintable(text.left(20));
}

} // namespace
