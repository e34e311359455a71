// SPDX-License-Identifier: MIT
#include "ToolKit/Text/CharacterHelpers.h"
#include "ToolKit/Text/StringHelpers.h"

#include <gtest/gtest.h>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;

namespace {

const QString family = u"👨‍👩‍👧‍👦"_s;
const QString accented = u"e\u0301"_s;
const QString half(QChar(0xD83D));

TEST(StringHelpers, KeepWhatFitsIntoAFileNameOrAnIdentifier)
{
    EXPECT_EQ(withoutFileNameCharacters(u"a/b\\c?d%e*f|g\"h<i>j:k"_s), u"abcdefghij:k");
    EXPECT_EQ(withoutFileNameCharacters(u"a/\u0301"_s + family), u"a\u0301"_s + family)
        << "under an accent, too";
    EXPECT_EQ(asciiAlphanumerics(u"Größe 12!? …Привет日本Ⅷ½"_s + accented + half + u"b"_s + family),
        u"Grosse12PrivetribenVIII12eb");
    EXPECT_EQ(asciiAlphanumerics(u"Größe Ωμέγα, "_s.repeated(100)), u"GrosseOmega"_s.repeated(100));
    EXPECT_EQ(asciiAlphanumerics((accented + u'Ж').repeated(500)), u"eZ"_s.repeated(500)) << "with no blank";
}

TEST(StringHelpers, NeverCutACharacter)
{
    const QString text = family + accented + u"xy"_s + accented;
    EXPECT_EQ(inserting(text, u"--"_s, 2), family + accented + u"--xy--"_s + accented);
    for (const qsizetype n : {0, -1, 6})
        EXPECT_EQ(inserting(text, u"-"_s, n), text) << n;

    EXPECT_EQ(truncated(text, 2, u"…"_s), family + accented + u'…');
    EXPECT_EQ(truncated(text, 5, u"…"_s), text);
    EXPECT_EQ(truncated(text, -1, u"…"_s), u"…");
    EXPECT_EQ(truncated({}, -1, u"…"_s), u"");

    for (const auto& [lower, capital] :
        std::initializer_list<std::pair<QString, QString>>{{{}, {}}, {u"hello World"_s, u"Hello World"_s},
            {accented + u"A"_s, u"E\u0301A"_s}, {u"ßa"_s, u"Ssa"_s}, {u"ǆ"_s, u"ǅ"_s}, {half, half}}) {
        EXPECT_EQ(capitalizedFirstLetter(lower), capital);
        QString inPlace = lower;
        capitalizeFirstLetter(inPlace);
        EXPECT_EQ(inPlace, capital);
    }
}

TEST(StringHelpers, SplitInTheMiddle)
{
    for (const auto& [text, separator, first, second] :
        std::initializer_list<std::tuple<QString, QString, QString, QString>>{
            {u"a b c"_s, u" "_s, u"a"_s, u"b c"_s}, {u"a b c d"_s, u" "_s, u"a b"_s, u"c d"_s},
            {u"abc"_s, u" "_s, {}, u"abc"_s}, {u"abc"_s, {}, {}, u"abc"_s}, {{}, u" "_s, {}, {}},
            {u" "_s, u" "_s, {}, {}}, {u"a, b, "_s, u", "_s, u"a"_s, u"b, "_s}})
        EXPECT_EQ(splitInHalf(text, separator), std::pair(first, second)) << qPrintable(text);
}

TEST(CharacterHelpers, TellEmojiFromDigits)
{
    for (const auto& [character, emoji, digit, scalar] :
        std::initializer_list<std::tuple<QString, bool, bool, std::optional<char32_t>>>{
            {u"0"_s, false, true, U'0'}, {u"9"_s, false, true, U'9'}, {u"٣"_s, false, false, U'٣'},
            {u"1\uFE0F\u20E3"_s, true, false, U'1'}, {u"#"_s, true, false, U'#'}, {family, true, false, U'👨'},
            {u"🇩🇪"_s, true, false, U'🇩'}, {accented, false, false, U'e'}, {half, false, false, std::nullopt},
            {{}, false, false, std::nullopt}}) {
        EXPECT_EQ(isEmoji(character), emoji) << qPrintable(character);
        EXPECT_EQ(isDigit(character), digit) << qPrintable(character);
        EXPECT_EQ(firstScalar(character), scalar) << qPrintable(character);
    }
    const QString mixed = u"a1"_s + family + accented + half + u"👍🏽 2"_s;
    EXPECT_EQ(withoutEmoji(mixed), u"a1"_s + accented + half + u" 2"_s);
    EXPECT_EQ(emojiOnly(mixed), family + u"👍🏽"_s);
}

} // namespace
