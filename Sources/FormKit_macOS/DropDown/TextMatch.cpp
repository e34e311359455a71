// SPDX-License-Identifier: MIT
#include "FormKit_macOS/DropDown/TextMatch.h"

#include "Platform/Text/GraphemeClusters.h"

#include <algorithm>

namespace quor::formkit {

namespace {

/// Whether composing would leave `text` as it is: the first combining character is U+0300.
bool isComposed(const QString& text)
{
    return std::all_of(text.begin(), text.end(), [](QChar letter) { return letter.unicode() < 0x300; });
}

QString composed(const QString& text)
{
    return isComposed(text) ? text : text.normalized(QString::NormalizationForm_C);
}

} // namespace

QString foldedText(const QString& text)
{
    // Capitals first, as "ß" has two letters there, and both forms of "σ" are one.
    return composed(composed(text).toUpper().toLower());
}

std::optional<platform::TextRange> matchIn(const QString& text, const QString& folded)
{
    const QString whole = foldedText(text);
    const qsizetype at = folded.isEmpty() ? -1 : whole.indexOf(folded);
    if (at < 0)
        return std::nullopt;
    const qsizetype end = at + folded.size();
    if (whole.size() == text.size() && isComposed(text))
        return platform::TextRange{at, folded.size()};
    platform::TextRange range{-1, 0};
    qsizetype position = 0; // in `whole`
    for (const QStringView character : platform::GraphemeClusters::characters(text)) {
        const qsizetype place = character.begin() - QStringView(text).begin();
        position += foldedText(character.toString()).size();
        if (range.location < 0 && position > at)
            range.location = place;
        range.length = place + character.size() - range.location;
        if (position >= end)
            break;
    }
    return range;
}

} // namespace quor::formkit
