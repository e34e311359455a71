// SPDX-License-Identifier: MIT
#include "Platform/Text/NumberFormatter.h"

#include <gtest/gtest.h>

#include <limits>

using quor::platform::NumberFormatter;

using namespace Qt::StringLiterals;

namespace {

TEST(NumberFormatter, WritesAsTheLanguageDoes)
{
    const struct {
        const char* locale;
        int minimum, maximum;
        double value;
        QString text;
    } cases[] = {
        {"en_US", 0, 2, 5000.0 / 3600, u"1.39"_s},
        {"de_DE", 0, 2, 5000.0 / 3600, u"1,39"_s},
        {"en_US", 0, 2, 0.125, u"0.12"_s}, // half to even
        {"en_US", 0, 2, -0.004, u"0"_s}, // no "-0"
        {"en_US", 0, 2, -0.006, u"-0.01"_s},
        {"en_US", 0, 2, 1234567.891, u"1,234,567.89"_s},
        {"de_CH", 0, 2, 1234567.891, u"1’234’567.89"_s},
        {"en_US", 0, 2, std::numeric_limits<double>::infinity(), QString()},
        {"en_US", 0, 2, std::numeric_limits<double>::quiet_NaN(), QString()},
    };
    for (const auto& c : cases) {
        NumberFormatter formatter((QLocale(QLatin1StringView(c.locale))));
        formatter.setMinimumFractionDigits(c.minimum);
        formatter.setMaximumFractionDigits(c.maximum);
        EXPECT_EQ(formatter.string(c.value), c.text) << c.locale << ' ' << c.value;
    }
    NumberFormatter formatter(QLocale::English);
    EXPECT_EQ(formatter.string(1e300).size(), 401) << "longer than any buffer made for ordinary numbers";
    const NumberFormatter copy = formatter;
    formatter.setMinimumFractionDigits(4);
    EXPECT_EQ(formatter.string(1), u"1.0000") << "the maximum moves along";
    EXPECT_EQ(copy.string(1), u"1");
}

TEST(NumberFormatter, ReadsOnlyWhatIsANumberToItsEnd)
{
    const struct {
        const char* locale;
        QString text;
        std::optional<double> number;
    } cases[] = {{"de_DE", u"1,5"_s, 1.5}, {"en_US", u"1,234.5"_s, 1234.5}, {"en_US", u""_s, {}},
        {"en_US", u" 5"_s, {}}, {"en_US", u"5h"_s, {}}, {"en_US", u"1,5"_s, {}}, {"en_US", u"∞"_s, {}},
        {"en_US", u"1E999"_s, {}}};
    for (const auto& c : cases)
        EXPECT_EQ(NumberFormatter(QLocale(QLatin1StringView(c.locale))).number(c.text), c.number)
            << c.locale << ' ' << c.text.toStdString();
}

} // namespace
