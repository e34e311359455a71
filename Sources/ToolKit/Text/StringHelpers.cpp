// SPDX-License-Identifier: MIT
#include "ToolKit/Text/StringHelpers.h"

#include "Platform/Text/GraphemeClusters.h"
#include "Platform/Text/ICUText.h"
#include "ToolKit/Text/CharacterHelpers.h"

#include <QStringList>

#include <unicode/locid.h>
#include <unicode/stringoptions.h>
#include <unicode/translit.h>
#include <unicode/uchar.h>
#include <unicode/unistr.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

using platform::GraphemeClusters;
using platform::icuText;
using platform::qtText;

/// The transliterator of this thread, kept since creating one takes milliseconds. Null if ICU has no data.
const icu::Transliterator* toAscii()
{
    UErrorCode status = U_ZERO_ERROR;
    thread_local const std::unique_ptr<icu::Transliterator> transliterator(
        icu::Transliterator::createInstance("Any-Latin; Latin-ASCII;", UTRANS_FORWARD, status));
    // The analyzer mistakes the thread-local object for one that ends here.
    return transliterator.get(); // NOLINT(clang-analyzer-cplusplus.NewDelete)
}

/// The length of the part of `text` that is transliterated at once. Parts are short, since ICU's time grows
/// with the square of the length. The result for a letter depends on its neighbours, so a part ends after a
/// blank if possible, and never within a character.
qsizetype firstPart(QStringView text)
{
    constexpr qsizetype mostAtOnce = 200;
    if (text.size() <= mostAtOnce)
        return text.size();
    for (qsizetype at = mostAtOnce; at > 0; --at) {
        if (text[at - 1].isSpace())
            return at;
    }
    const auto characters = GraphemeClusters::characters(text.first(mostAtOnce));
    return characters.size() > 1 ? mostAtOnce - characters.back().size() : mostAtOnce;
}

bool isAsciiAlphanumeric(QChar character)
{
    return (character >= u'0' && character <= u'9') || (character >= u'A' && character <= u'Z')
        || (character >= u'a' && character <= u'z');
}

char32_t scalarAt(QStringView text, qsizetype index)
{
    return firstScalar(text.sliced(index)).value_or(text[index].unicode());
}

// Two such scalars side by side are always two characters, so that most texts need no segmentation.
bool standsAlone(char32_t scalar)
{
    constexpr char32_t firstCombining = 0x300;
    return scalar < firstCombining
        || u_getIntPropertyValue(static_cast<UChar32>(scalar), UCHAR_GRAPHEME_CLUSTER_BREAK) == U_GCB_OTHER;
}

// Returns the shortest beginning of the text that surely ends with a character.
QStringView firstPiece(QStringView text)
{
    char32_t last = scalarAt(text, 0);
    qsizetype end = QChar::requiresSurrogates(last) + 1;
    while (end < text.size()) {
        const char32_t next = scalarAt(text, end);
        if (standsAlone(last) && standsAlone(next))
            break;
        last = next;
        end += QChar::requiresSurrogates(next) + 1;
    }
    return text.first(end);
}

QString filtered(QStringView text, bool wantsEmoji)
{
    QString kept;
    const auto keepIfWanted = [&](QStringView character) {
        if (isEmoji(character) == wantsEmoji)
            kept += character;
    };
    while (!text.isEmpty()) {
        const QStringView piece = firstPiece(text);
        text = text.sliced(piece.size());
        if (piece.size() == 1) {
            keepIfWanted(piece);
        } else {
            for (const QStringView character : GraphemeClusters::characters(piece))
                keepIfWanted(character);
        }
    }
    return kept;
}

} // namespace

QString withoutFileNameCharacters(const QString& text)
{
    // By UTF-16 units: a slash with an accent is still a slash in a file name.
    QString kept = text;
    return kept.removeIf([](QChar character) { return QStringView(u"/\\?%*|\"<>").contains(character); });
}

QString asciiAlphanumerics(const QString& text)
{
    const icu::Transliterator* transliterator = toAscii();
    if (!transliterator)
        return {};
    QString result;
    for (QStringView rest = text; !rest.isEmpty();) {
        const qsizetype size = firstPart(rest);
        icu::UnicodeString latin = icuText(rest.first(size));
        transliterator->transliterate(latin);
        result += qtText(latin).removeIf([](QChar character) { return !isAsciiAlphanumeric(character); });
        rest = rest.sliced(size);
    }
    return result;
}

QString inserting(const QString& text, const QString& separator, qsizetype every)
{
    if (every < 1)
        return text;
    QString result;
    qsizetype position = 0;
    for (const QStringView character : GraphemeClusters::characters(text)) {
        if (position > 0 && position % every == 0)
            result += separator;
        result += character;
        ++position;
    }
    return result;
}

std::pair<QString, QString> splitInHalf(const QString& text, const QString& separator)
{
    const QStringList parts = separator.isEmpty() ? QStringList(text) : text.split(separator);
    const qsizetype half = parts.size() / 2;
    return {parts.first(half).join(separator), parts.sliced(half).join(separator)};
}

QString truncated(const QString& text, qsizetype limit, const QString& suffix)
{
    const QStringView head = GraphemeClusters::first(text, limit);
    return head.size() == text.size() ? text : head.toString() + suffix;
}

QString capitalizedFirstLetter(const QString& text)
{
    const QStringView first = GraphemeClusters::first(text, 1);
    icu::UnicodeString letter = icuText(first);
    letter.toTitle(nullptr, icu::Locale::getRoot(), U_TITLECASE_WHOLE_STRING | U_TITLECASE_NO_LOWERCASE);
    return qtText(letter) + QStringView(text).sliced(first.size()).toString();
}

void capitalizeFirstLetter(QString& text)
{
    text = capitalizedFirstLetter(text);
}

QString withoutEmoji(QStringView text)
{
    return filtered(text, false);
}

QString emojiOnly(QStringView text)
{
    return filtered(text, true);
}

} // namespace quor::toolkit
