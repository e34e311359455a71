// SPDX-License-Identifier: MIT
#include "Platform/Text/NumberFormatter.h"

#include <gtest/gtest.h>

using quor::platform::NumberFormatter;

using namespace Qt::StringLiterals;

namespace {

TEST(NumberFormatter, WritesAsManyDigitsAsSetHoweverLong)
{
    NumberFormatter formatter(QLocale::English);
    EXPECT_EQ(formatter.string(1e300).size(), 401) << "longer than the usual buffer";
    formatter.setMinimumFractionDigits(4);
    EXPECT_EQ(formatter.string(1), u"1.0000") << "the maximum is raised with it";
    EXPECT_EQ(NumberFormatter(QLocale(u"de_CH"_s)).string(1234567), u"1’234’567");
}

TEST(NumberFormatter, RefusesATextWithAnythingButANumber)
{
    const NumberFormatter formatter(QLocale::English);
    EXPECT_EQ(formatter.number(u"1,234.5"_s), 1234.5);
    for (const auto& text : {u""_s, u" 5"_s, u"5h"_s, u"1,5"_s, u"∞"_s, u"1E999"_s})
        EXPECT_EQ(formatter.number(text), std::nullopt) << qPrintable(text);
}

} // namespace
