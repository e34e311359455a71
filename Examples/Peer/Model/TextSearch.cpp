// SPDX-License-Identifier: MIT
#include "Peer/Model/TextSearch.h"

#include "Platform/Text/GraphemeClusters.h"

#include <algorithm>

namespace quor::peer {

namespace {

QString folded(const QString& text)
{
    // Upper case first, since it expands characters such as a sharp s, which becomes "SS".
    const QString plain = text.trimmed().normalized(QString::NormalizationForm_KD).toUpper().toCaseFolded();
    QString bare;
    bare.reserve(plain.size());
    std::copy_if(plain.begin(), plain.end(), std::back_inserter(bare),
        [](QChar character) { return character.category() != QChar::Mark_NonSpacing; });
    return bare;
}

QStringList characters(const QString& text)
{
    QStringList result;
    for (const QStringView character : platform::GraphemeClusters::characters(text))
        result.append(character.toString());
    return result;
}

} // namespace

TextSearch::TextSearch(const QString& sought)
    : sought_(characters(folded(sought)))
{
}

bool TextSearch::isFoundIn(const QString& text) const
{
    const QStringList within = characters(folded(text));
    return std::search(within.begin(), within.end(), sought_.begin(), sought_.end()) != within.end()
        || isEmpty();
}

bool TextSearch::isSameAs(const QString& text) const
{
    return characters(folded(text)) == sought_;
}

} // namespace quor::peer
