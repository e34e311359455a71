// SPDX-License-Identifier: MIT
#include "ToolKit/Markdown/BoldMarkFinder.h"

#include <algorithm>

namespace quor::toolkit {

namespace {

constexpr qsizetype markerLength = 2;

bool endsLine(QChar character)
{
    switch (character.unicode()) {
    case u'\n':
    case u'\v':
    case u'\f':
    case u'\r':
    case 0x85:
    case QChar::LineSeparator:
    case QChar::ParagraphSeparator:
        return true;
    default:
        return false;
    }
}

qsizetype orEnd(qsizetype found, QStringView text)
{
    return found < 0 ? text.size() : found;
}

qsizetype findStars(QStringView text, qsizetype from)
{
    return orEnd(text.indexOf(u"**", from), text);
}

qsizetype findUnderscores(QStringView text, qsizetype from)
{
    return orEnd(text.indexOf(u"__", from), text);
}

qsizetype findLineEnd(QStringView text, qsizetype from)
{
    const auto rest = text.sliced(std::min(from, text.size()));
    return text.size() - (rest.end() - std::find_if(rest.begin(), rest.end(), endsLine));
}

} // namespace

BoldMarkFinder::BoldMarkFinder(QStringView text)
    : text_(text)
    , stars_(findStars)
    , underscores_(findUnderscores)
    , lineEnds_(findLineEnd)
{
}

bool BoldMarkFinder::isMarker(qsizetype at) const
{
    return at + 1 < text_.size() && text_[at] == text_[at + 1] && (text_[at] == u'*' || text_[at] == u'_');
}

bool BoldMarkFinder::isAtLineStart(qsizetype at) const
{
    return at == position_ || endsLine(text_[at - 1]);
}

std::optional<qsizetype> BoldMarkFinder::closing(qsizetype opening)
{
    auto& markers = text_[opening] == u'*' ? stars_ : underscores_;
    const qsizetype content = opening + markerLength;
    const qsizetype found = markers.from(text_, content + 1); // the content has at least one character
    if (found >= text_.size() || lineEnds_.from(text_, content) < found)
        return std::nullopt;
    return found;
}

std::optional<MarkdownMark> BoldMarkFinder::next()
{
    for (qsizetype at = position_; at + 1 < text_.size(); ++at) {
        if (!isMarker(at))
            continue;
        qsizetype opening = at;
        auto end = closing(opening);
        if (!end)
            continue;
        // The pattern prefers a match with a character before the marker. At a line start that character can
        // only be the first of three stars, and the marker then begins at the second.
        if (isAtLineStart(at) && isMarker(at + 1)) {
            if (const auto later = closing(at + 1)) {
                opening = at + 1;
                end = later;
            }
        }
        const qsizetype content = opening + markerLength;
        position_ = *end + markerLength;
        return MarkdownMark{{opening, markerLength}, {content, *end - content}, {*end, markerLength}, {}};
    }
    position_ = text_.size();
    return std::nullopt;
}

} // namespace quor::toolkit
