// SPDX-License-Identifier: MIT
#include "ToolKit/Text/CharacterHelpers.h"

#include <unicode/uchar.h>

namespace quor::toolkit {

namespace {

// ICU keeps the emoji in a table of its own, which takes most of a megabyte to load: not for plain text.
bool hasEmojiProperty(char32_t scalar)
{
    constexpr char32_t firstOfTheOthers = 0x203C;
    if (scalar < firstOfTheOthers)
        return scalar == U'#' || scalar == U'*' || (scalar >= U'0' && scalar <= U'9') || scalar == U'\u00A9'
            || scalar == U'\u00AE';
    return u_hasBinaryProperty(static_cast<UChar32>(scalar), UCHAR_EMOJI);
}

} // namespace

bool isDigit(QStringView character)
{
    return character.size() == 1 && character.front() >= u'0' && character.front() <= u'9';
}

bool isEmoji(QStringView character)
{
    const auto scalar = firstScalar(character);
    return scalar && !isDigit(character) && hasEmojiProperty(*scalar);
}

std::optional<char32_t> firstScalar(QStringView character)
{
    if (character.isEmpty())
        return std::nullopt;
    const QChar first = character.front();
    if (!first.isSurrogate())
        return first.unicode();
    if (!first.isHighSurrogate() || character.size() < 2 || !character[1].isLowSurrogate())
        return std::nullopt;
    return QChar::surrogateToUcs4(first, character[1]);
}

} // namespace quor::toolkit
