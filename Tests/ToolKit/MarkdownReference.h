// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Text/AttributedString.h"
#include "ToolKit/Markdown/MarkdownMarks.h"

#include <QUrl>

#include <unicode/regex.h>

namespace quor::test {

/// A text without its Markdown marks; one letter for each unit tells what it is: 'l'ink, 'b'old, 'x' both.
struct PlainMarkdown {
    QString text;
    QString kinds;

    friend bool operator==(const PlainMarkdown&, const PlainMarkdown&) = default;
};

/// What the patterns make of a text, match by match, each searched for in what the last one left.
class MarkdownReference final {
public:
    explicit MarkdownReference(const QString& text)
        : result_{text, QString(text.size(), u' ')}
    {
        static const auto link = compiled(toolkit::linkPattern);
        static const auto bold = compiled(toolkit::boldPattern);
        static const auto image = compiled(toolkit::imagePattern);
        walk(*link, [&](const icu::RegexMatcher& match) {
            if (QUrl(group(match, 4), QUrl::StrictMode).isValid())
                mark(match, 2, u'l', u'x');
            remove(match, 3);
            remove(match, 1);
        });
        walk(*bold, [&](const icu::RegexMatcher& match) {
            mark(match, 3, u'b', u'x');
            remove(match, 4);
            remove(match, 2);
        });
        walk(*image, [&](const icu::RegexMatcher& match) { remove(match, 1); });
    }

    [[nodiscard]] const PlainMarkdown& result() const { return result_; }

    [[nodiscard]] static PlainMarkdown of(const platform::AttributedString& text)
    {
        PlainMarkdown result{text.string(), QString(text.length(), u' ')};
        for (const auto& run : text.runs()) {
            const bool link = run.format.hasProperty(QTextFormat::TextUnderlineColor);
            const bool bold = run.format.fontWeight() == QFont::Bold;
            const char16_t kind = link ? (bold ? u'x' : u'l') : (bold ? u'b' : u' ');
            std::fill_n(result.kinds.begin() + run.start, run.length, kind);
        }
        return result;
    }

private:
    static std::unique_ptr<icu::RegexPattern> compiled(QStringView pattern)
    {
        UErrorCode status = U_ZERO_ERROR;
        const icu::UnicodeString text(pattern.utf16(), static_cast<int32_t>(pattern.size()));
        return std::unique_ptr<icu::RegexPattern>(icu::RegexPattern::compile(text, 0, status));
    }

    template <typename Apply>
    void walk(const icu::RegexPattern& pattern, const Apply& apply)
    {
        UErrorCode status = U_ZERO_ERROR;
        for (qsizetype position = 0; true;) {
            const QString before = result_.text; // what the matcher looks at
            const auto length = static_cast<int32_t>(before.size());
            const icu::UnicodeString input(false, reinterpret_cast<const char16_t*>(before.utf16()), length);
            const std::unique_ptr<icu::RegexMatcher> match(pattern.matcher(input, status));
            match->useAnchoringBounds(false);
            match->region(static_cast<int32_t>(position), length, status);
            if (!match->find(status))
                return;
            apply(*match);
            position = match->end(status) + result_.text.size() - length;
        }
    }

    static int32_t start(const icu::RegexMatcher& match, int group)
    {
        UErrorCode status = U_ZERO_ERROR;
        return match.start(group, status);
    }
    static int32_t length(const icu::RegexMatcher& match, int group)
    {
        UErrorCode status = U_ZERO_ERROR;
        return match.end(group, status) - match.start(group, status);
    }
    [[nodiscard]] QString group(const icu::RegexMatcher& match, int group) const
    {
        return result_.text.mid(start(match, group), length(match, group));
    }
    void mark(const icu::RegexMatcher& match, int group, char16_t kind, char16_t both)
    {
        for (int i = 0; i < length(match, group); ++i) {
            QChar& unit = result_.kinds[start(match, group) + i];
            unit = unit == u' ' ? kind : both;
        }
    }
    void remove(const icu::RegexMatcher& match, int group)
    {
        result_.text.remove(start(match, group), length(match, group));
        result_.kinds.remove(start(match, group), length(match, group));
    }

    PlainMarkdown result_;
};

} // namespace quor::test
