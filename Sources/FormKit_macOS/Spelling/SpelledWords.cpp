// SPDX-License-Identifier: MIT
#include "FormKit_macOS/Spelling/SpelledWords.h"

#include <QList>
#include <QTextBoundaryFinder>

#include <algorithm>

using namespace Qt::StringLiterals;
using quor::platform::TextRange;

namespace quor::formkit {

namespace {

/// Whether `token`, a text without blanks, is the name of a host, a file or the like, or an address.
bool isName(QStringView token)
{
    constexpr QStringView joints = u"._\\";
    for (qsizetype i = 1; i + 1 < token.size(); ++i) {
        if (joints.contains(token[i]) && token[i - 1].isLetterOrNumber() && token[i + 1].isLetterOrNumber())
            return true;
    }
    return token.contains(u'@') || token.contains("://"_L1);
}

bool isSpelledWord(QStringView word)
{
    if (word.size() < 2 || word.size() > longestSpelledWord)
        return false;
    const auto characters = word.toUcs4();
    return std::all_of(characters.begin(), characters.end(), [](char32_t character) {
        return QChar::isLetter(character) || QChar::isMark(character) || character == U'\''
            || character == U'\u2019';
    });
}

void appendWords(QStringView text, TextRange token, std::vector<TextRange>& words)
{
    QTextBoundaryFinder finder(QTextBoundaryFinder::Word, text.mid(token.location, token.length));
    qsizetype start = 0;
    for (qsizetype place = 0; place >= 0; place = finder.toNextBoundary()) {
        const auto reasons = finder.boundaryReasons();
        const TextRange word{token.location + start, place - start};
        if ((reasons & QTextBoundaryFinder::EndOfItem) && isSpelledWord(text.mid(word.location, word.length)))
            words.push_back(word);
        if (reasons & QTextBoundaryFinder::StartOfItem)
            start = place;
    }
}

} // namespace

std::vector<TextRange> spelledWords(QStringView text)
{
    const auto isSpace = [](QChar character) { return character.isSpace(); };
    std::vector<TextRange> words;
    for (const auto* it = text.begin(); it != text.end();) {
        it = std::find_if_not(it, text.end(), isSpace);
        const auto* const end = std::find_if(it, text.end(), isSpace);
        const TextRange token{it - text.begin(), end - it};
        if (!isName(text.mid(token.location, token.length)))
            appendWords(text, token, words);
        it = end;
    }
    return words;
}

} // namespace quor::formkit
