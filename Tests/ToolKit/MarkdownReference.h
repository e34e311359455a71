// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Text/AttributedString.h"
#include "Platform/Text/RegularExpression.h"
#include "ToolKit/Markdown/MarkdownMarks.h"

#include <QUrl>

namespace quor::test {

/// A text without its Markdown marks. For each UTF-16 unit, '1' means a link, '2' bold, '3' both.
struct PlainMarkdown {
    QString text;
    QString kinds = QString(text.size(), u'0');

    friend bool operator==(const PlainMarkdown&, const PlainMarkdown&) = default;
};

inline PlainMarkdown plainMarkdown(const platform::AttributedString& text)
{
    PlainMarkdown result{text.string()};
    for (const auto& run : text.runs()) {
        const int link = run.format.hasProperty(QTextFormat::TextUnderlineColor) ? 1 : 0;
        const int bold = run.format.fontWeight() == QFont::Bold ? 2 : 0;
        std::fill_n(result.kinds.begin() + run.start, run.length, QChar(u'0' + link + bold));
    }
    return result;
}

/// One pass by the regular expression itself. The group after the group `opening` is the content.
inline PlainMarkdown applied(
    const platform::RegularExpression& pattern, const PlainMarkdown& before, std::size_t opening, int kind)
{
    PlainMarkdown after;
    qsizetype at = 0;
    const auto keepUntil = [&](qsizetype end, int added) {
        for (; at < end; ++at) {
            after.text += before.text[at];
            after.kinds += QChar(before.kinds[at].unicode() | added);
        }
    };
    for (const auto& match : pattern.matches(before.text)) {
        const auto isUrl = [&](platform::TextRange range) {
            return QUrl(before.text.mid(range.location, range.length), QUrl::StrictMode).isValid();
        };
        keepUntil(match.groups[opening]->location, 0);
        at = match.groups[opening]->end();
        if (kind != 0)
            keepUntil(match.groups[opening + 1]->end(), kind == 1 && !isUrl(*match.groups[4]) ? 0 : kind);
        at = match.range().end();
    }
    keepUntil(before.text.size(), 0);
    return after;
}

/// The result of the three regular expressions.
inline PlainMarkdown markdownReference(const QString& text)
{
    using platform::RegularExpression;
    static const auto link = RegularExpression::compile(toolkit::linkPattern.toString());
    static const auto bold = RegularExpression::compile(toolkit::boldPattern.toString());
    static const auto image = RegularExpression::compile(toolkit::imagePattern.toString());
    return applied(*image, applied(*bold, applied(*link, {text}, 1, 1), 2, 2), 1, 0);
}

} // namespace quor::test
