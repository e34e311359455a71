// SPDX-License-Identifier: MIT
#include "View/StatusItem/TaskText.h"

#include "Platform/Text/GraphemeClusters.h"

#include <QStringView>

#include <unicode/uchar.h>

namespace quor::helper {

namespace {

char32_t scalarAt(QStringView text, qsizetype index)
{
    const QChar unit = text[index];
    if (unit.isHighSurrogate() && index + 1 < text.size() && text[index + 1].isLowSurrogate())
        return QChar::surrogateToUcs4(unit, text[index + 1]);
    return unit.unicode();
}

// Two such scalars side by side are always two characters, so that most texts need no segmentation.
bool standsAlone(char32_t scalar)
{
    constexpr char32_t firstCombining = 0x300;
    return scalar < firstCombining
        || u_getIntPropertyValue(static_cast<UChar32>(scalar), UCHAR_GRAPHEME_CLUSTER_BREAK) == U_GCB_OTHER;
}

// ICU keeps the emoji in a table of its own, which takes most of a megabyte to load: not for plain names.
bool isEmoji(char32_t scalar)
{
    constexpr char32_t firstOfTheOthers = 0x203C;
    if (scalar < firstOfTheOthers)
        return scalar == U'#' || scalar == U'*' || (scalar >= U'0' && scalar <= U'9') || scalar == U'\u00A9'
            || scalar == U'\u00AE';
    return u_hasBinaryProperty(static_cast<UChar32>(scalar), UCHAR_EMOJI);
}

bool isDropped(QStringView character)
{
    const char32_t first = scalarAt(character, 0);
    const bool isPlainDigit = character.size() == 1 && first >= U'0' && first <= U'9';
    return !isPlainDigit && isEmoji(first);
}

// The end of the shortest piece from `start` that surely ends with a character.
qsizetype pieceEnd(QStringView text, qsizetype start)
{
    char32_t last = scalarAt(text, start);
    qsizetype end = start + QChar::requiresSurrogates(last) + 1;
    while (end < text.size()) {
        const char32_t next = scalarAt(text, end);
        if (standsAlone(last) && standsAlone(next))
            break;
        last = next;
        end += QChar::requiresSurrogates(next) + 1;
    }
    return end;
}

QString withoutEmoji(QStringView text)
{
    QString kept;
    qsizetype keptUpTo = 0;
    const auto drop = [&](QStringView character) {
        const qsizetype start = character.data() - text.data();
        kept += text.sliced(keptUpTo, start - keptUpTo);
        keptUpTo = start + character.size();
    };
    for (qsizetype start = 0; start < text.size();) {
        const qsizetype end = pieceEnd(text, start);
        const QStringView piece = text.sliced(start, end - start);
        if (piece.size() == 1) {
            if (isDropped(piece))
                drop(piece);
        } else {
            for (const QStringView character : platform::GraphemeClusters::characters(piece)) {
                if (isDropped(character))
                    drop(character);
            }
        }
        start = end;
    }
    return kept += text.sliced(keptUpTo);
}

bool isBlank(QChar unit)
{
    return unit == u'\t' || unit.category() == QChar::Separator_Space;
}

QStringView trimmed(QStringView text)
{
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text;
}

} // namespace

QString taskText(const QString& name, std::size_t runningTimers)
{
    const QString text = withoutEmoji(name);
    QString shown = trimmed(text).toString();
    if (runningTimers >= 2)
        shown += u'+' + QString::number(runningTimers - 1);
    return shown;
}

} // namespace quor::helper
