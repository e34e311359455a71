// SPDX-License-Identifier: MIT
#include "Platform/Text/AttributedString.h"
#include "Platform/Text/GraphemeClusters.h"
#include "Platform/Text/NumberFormatter.h"
#include "Platform/Text/RegularExpression.h"

#include <gmock/gmock.h>

#include <QStringList>

#include <algorithm>
#include <limits>

using quor::platform::AttributedString;
using quor::platform::GraphemeClusters;
using quor::platform::NumberFormatter;
using quor::platform::RegularExpression;
using quor::platform::TextAttachment;
using quor::platform::TextRange;
using testing::ElementsAre;

using namespace Qt::StringLiterals;

namespace {

TEST(GraphemeClusters, AreWhatAReaderSees)
{
    const QStringList texts[] = {
        {},
        {u"a"_s, u"\r\n"_s, u"b"_s, u"\r"_s},
        {u"e\u0301"_s, u"🇩🇪"_s, u"🇫🇷"_s, u"a"_s, u"👨‍👩‍👧‍👦"_s, u"👍🏽"_s},
        {u"a"_s, QChar(0x0600) + u"1"_s, u"2"_s}, // the number sign joins the next character
        {QString(QChar(0xD83D)), u"a"_s},
    };
    for (const auto& characters : texts) {
        const QString text = characters.join(QString());
        EXPECT_EQ(GraphemeClusters::count(text), characters.size());
        QStringList found;
        for (const auto character : GraphemeClusters::characters(text))
            found += character.toString();
        EXPECT_EQ(found, characters) << text.toStdString();
        for (int n = -1; n <= characters.size() + 1; ++n) {
            EXPECT_EQ(GraphemeClusters::first(text, n), characters.mid(0, std::max(n, 0)).join(QString()));
            EXPECT_EQ(GraphemeClusters::last(text, n),
                characters.mid(std::max<int>(characters.size() - n, 0)).join(QString()));
        }
    }
}

TEST(RegularExpression, FindsRangesInUTF16UnitsAndReplacesThem)
{
    const auto expression = RegularExpression::compile(u"(\\w)(\\d)?!"_s).value();
    const auto matches = expression.matches(u"👍 a1! b!"_s);
    ASSERT_EQ(matches.size(), 2);
    EXPECT_THAT(matches[0].groups, ElementsAre(TextRange{3, 3}, TextRange{3, 1}, TextRange{4, 1}));
    EXPECT_THAT(matches[1].groups, ElementsAre(TextRange{7, 2}, TextRange{7, 1}, std::nullopt));
    EXPECT_EQ(expression.replaceAll(u"a1! b!"_s, u"$2\\$1"_s), u"1$1 $1");
    EXPECT_EQ(expression.replaceAll(u"a!"_s, u"$7"_s), u"a!") << "no such group";
    EXPECT_FALSE(RegularExpression::compile(u"(a"_s));
}

TEST(RegularExpression, GivesUpOnHostileText)
{
    const auto expression = RegularExpression::compile(u"(a+)+b|c"_s).value();
    const QString hostile = u"c"_s + QString(100, u'a');
    EXPECT_TRUE(expression.matches(hostile).empty());
    EXPECT_EQ(expression.replaceAll(hostile, u"d"_s), hostile);
    EXPECT_EQ(expression.matches(QString(100'000, u'c')).size(), 100'000);
}

/// The runs as "from+length" with "b" for bold, "u" for underlined.
QString described(const AttributedString& text)
{
    QStringList runs;
    for (const auto& run : text.runs())
        runs += u"%1+%2"_s.arg(run.start).arg(run.length)
            + (run.format.fontWeight() == QFont::Bold ? u"b"_s : QString())
            + (run.format.fontUnderline() ? u"u"_s : QString());
    return runs.join(u' ');
}

TEST(AttributedString, KeepsItsRunsInOrderAndJoined)
{
    QTextCharFormat bold;
    bold.setFontWeight(QFont::Bold);
    AttributedString text(u"0123456789"_s);
    text.addAttributes(bold, {2, 3});
    text.addAttribute(QTextFormat::TextUnderlineStyle, QTextCharFormat::SingleUnderline, {4, 3});
    EXPECT_EQ(described(text), u"0+2 2+2b 4+1bu 5+2u 7+3");
    EXPECT_TRUE(text.attributes(10).isEmpty());
    text.addAttribute(QTextFormat::TextUnderlineStyle, QVariant(), {-3, 100});
    EXPECT_EQ(described(text), u"0+2 2+3b 5+5");
    text.addAttributes(bold, {10, 5});
    text.addAttributes(bold, {3, -2});
    text.addAttributes({}, {3, std::numeric_limits<qsizetype>::max()});
    text.append(text);
    EXPECT_EQ(described(text), u"0+2 2+3b 5+7 12+3b 15+5");
}

TEST(AttributedString, HoldsAttachmentsAsCharacters)
{
    QImage image(2, 3, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::red);
    const TextAttachment attachment{image, QRectF(0, -1, 10, 15)};
    AttributedString text(attachment);
    text.append(AttributedString(attachment));
    text.append(AttributedString(u" a"_s));
    text.addAttribute(QTextFormat::FontPointSize, 12.0, {0, text.length()});
    EXPECT_EQ(text.string(), u"\uFFFC\uFFFC a");
    EXPECT_EQ(text.runs().size(), 3) << "each attachment is one character's";
    EXPECT_EQ(text.attachment(1), attachment);
}

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
    for (const auto& text : {u""_s, u" 5"_s, u"5h"_s, u"1,5"_s, u"∞"_s, u"1E999"_s, QString(1001, u'0')})
        EXPECT_EQ(formatter.number(text), std::nullopt) << qPrintable(text);
}

} // namespace
