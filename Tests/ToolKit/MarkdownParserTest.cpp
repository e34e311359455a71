// SPDX-License-Identifier: MIT
#include "ToolKit/Markdown/MarkdownParser.h"
#include "ToolKit/Drawing/Text/IconAttachment.h"
#include "ToolKit/Drawing/Text/SystemFont.h"
#include "ToolKit/MarkdownReference.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <random>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;
using quor::platform::Bundle;
using quor::test::markdownReference;
using quor::test::plainMarkdown;

namespace {

QFont font()
{
    return systemFont(13, QFont::Normal);
}

MarkdownParser parserOf(const QString& text)
{
    return {text, font(), Qt::red, {}, Bundle(QString())};
}

/// The text with its attributes written as tags.
QString tagged(const QString& markdown)
{
    QString result;
    const auto text = parserOf(markdown).parse();
    for (const auto& run : text.runs()) {
        QString part = text.string().mid(run.start, run.length);
        if (run.format.hasProperty(QTextFormat::TextUnderlineColor))
            part = u"<a %1>%2</a>"_s.arg(run.format.anchorHref(), part);
        result += run.format.fontWeight() == QFont::Bold ? u"<b>"_s + part + u"</b>"_s : part;
    }
    return result;
}

TEST(MarkdownParser, KnowsLinksBoldAndImages)
{
    const std::pair<QString, QString> cases[] = {
        {u"**a** and __b__"_s, u"<b>a</b> and <b>b</b>"_s},
        {u"**a__ b"_s, u"**a__ b"_s},
        {u"**a\nb** [c\nd](ef)"_s, u"**a\nb** <a ef>c\nd</a>"_s},
        {u"*******"_s, u"*<b>*</b>*"_s},
        {u"![alt](xy)"_s, u"!<a xy>alt</a>"_s},
        {u"[**a**](b)"_s, u"[<b>a</b>](b)"_s},
        {u"**[a](bc)**"_s, u"<b><a bc>a</a></b>"_s},
        {u"[a](b c) [](bc) [a]() [a](bc"_s, u"[a](b c) [](bc) [a]() [a](bc"_s},
        {u"[a](b)"_s, u"<a >a</a>"_s},
        {u"[Zeit & mehr](https://example.org:8/ä?x=1#y)"_s,
            u"<a https://example.org:8/%C3%A4?x=1#y>Zeit & mehr</a>"_s},
        {u"[a](http://b:c)"_s, u"a"_s},
        {u"a![](nowhere.png)b ![](**n**)"_s, u"ab "_s},
    };
    for (const auto& [markdown, expected] : cases)
        EXPECT_EQ(tagged(markdown), expected);
    auto parser = parserOf(u"[a](http://b:c)"_s);
    EXPECT_FALSE(parser.linkMatchesFound());
    EXPECT_EQ(parser.parse(), parser.parse());
    EXPECT_TRUE(parser.linkMatchesFound()) << "also if the destination is not a valid URL";
}

TEST(MarkdownParser, UsesItsAttributesColorsAndIcons)
{
    const QTemporaryDir folder;
    QDir(folder.path()).mkdir(u"Images"_s);
    QImage icon(30, 20, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::black);
    icon.save(folder.filePath(u"Images/icon.png"_s));
    QFile colors(folder.filePath(u"Colors.json"_s));
    ASSERT_TRUE(colors.open(QIODevice::WriteOnly));
    colors.write(R"({"AccentColor": {"light": "#123456", "dark": "#123456"}})");
    colors.close();

    QTextCharFormat defaults;
    defaults.setForeground(Qt::blue);
    defaults.setFontWeight(QFont::Black);
    defaults.setFontOverline(true);
    const auto text = MarkdownParser(
        u"a [b](cd) ![](icon.png)![](icon)"_s, font(), Qt::red, defaults, Bundle(folder.path()))
                          .parse();
    EXPECT_EQ(text.string(), u"a b \uFFFC\uFFFC"_s);
    const QTextCharFormat plain = text.attributes(0);
    EXPECT_EQ(plain.foreground().color(), QColor(Qt::red));
    EXPECT_EQ(plain.fontWeight(), QFont::Normal);
    EXPECT_TRUE(plain.fontOverline()) << "an attribute that neither font nor colour sets is kept";
    EXPECT_EQ(text.attributes(2).foreground().color(), QColor(0x12, 0x34, 0x56));
    ASSERT_TRUE(text.attachment(5));
    EXPECT_EQ(text.attachment(4)->bounds.height(), iconHeight(font()));
    EXPECT_NEAR(text.attachment(4)->bounds.width(), 1.5 * iconHeight(font()), 0.5) << "whole pixels";
    EXPECT_EQ(text.attachment(5)->image.pixelColor(0, 0), QColor(Qt::red));
    EXPECT_FALSE(text.attributes(4).hasProperty(QTextFormat::ForegroundBrush));
}

TEST(MarkdownParser, AgreesWithThePatterns)
{
    const QString pieces[] = {u"*"_s, u"**"_s, u"_"_s, u"__"_s, u"["_s, u"]("_s, u")"_s, u"![]("_s, u"!"_s,
        u"a"_s, u"ä."_s, u" "_s, u"\n"_s, u"\r\n"_s, u"\u2028"_s, u"\u000B"_s, u"😀"_s, u"\u0301-"_s,
        QString(QChar(0xD83D)), QString(QChar(0xDE00)), u"#:"_s, u"\u200D&"_s, QString(QChar(0))};
    std::mt19937 random(20261123);
    for (int round = 0; round < 20'000; ++round) {
        QString text;
        for (auto left = random() % 24; left > 0; --left)
            text += pieces[random() % std::size(pieces)];
        ASSERT_EQ(plainMarkdown(parserOf(text).parse()), markdownReference(text)) << text.toStdString();
    }
    for (char32_t first = 0; first < 0x20000; first += 0x20) {
        QString text;
        for (char32_t character = first; character < first + 0x20; ++character)
            text += u"[%1](b)[a](%1)![](%1)**%1**\n"_s.replace(u"%1"_s, QString::fromUcs4(&character, 1));
        ASSERT_EQ(plainMarkdown(parserOf(text).parse()), markdownReference(text)) << text.toStdString();
    }
}

TEST(MarkdownParser, TakesTimeLinearInTheLength)
{
    for (const auto& piece : {u"*"_s, u"_"_s, u"["_s, u"["_s + QString(1000, u'a'), u"![]("_s, u"**_"_s,
             u"**\n"_s, u"**a__"_s, u"[a]("_s, u"[a](bc)"_s, u"😀**"_s}) {
        QElapsedTimer time;
        time.start();
        EXPECT_FALSE(parserOf(piece.repeated((1 << 20) / piece.size())).parse().isEmpty());
        EXPECT_LT(time.elapsed(), 10'000) << piece.left(9).toStdString();
    }
}

} // namespace
