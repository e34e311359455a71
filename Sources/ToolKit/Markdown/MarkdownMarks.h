// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Text/TextRange.h"

#include <QStringView>

#include <vector>

/// Finds the three kinds of Markdown marks in interface texts: links, bold text and images.
///
/// Each function returns the matches of its pattern, an ICU regular expression, in order and without overlap.
/// It walks the text once, while a search with the regular expression can take time that grows with the
/// square of the length. Any thread.
namespace quor::toolkit {

struct MarkdownMark {
    /// The mark before the content, which is removed; for an image the whole construct.
    platform::TextRange opening;
    platform::TextRange content; ///< the text that stays; empty for an image
    platform::TextRange closing; ///< the mark after the content, which is removed
    platform::TextRange argument; ///< destination of a link, name of an image
};

constexpr QStringView linkPattern = u"(\\[)([\\w\\s\\d&\\-\\.]+)(\\]\\(([\\w\\d./?\\-:=#@]+)\\))";
constexpr QStringView boldPattern = u"(.?|^)(\\*\\*|__)(.+?)(\\2)";
constexpr QStringView imagePattern = u"(!\\[\\]\\(([\\.\\_\\-\\w\\d]+)\\))";

[[nodiscard]] std::vector<MarkdownMark> linkMarks(QStringView text);
[[nodiscard]] std::vector<MarkdownMark> boldMarks(QStringView text);
[[nodiscard]] std::vector<MarkdownMark> imageMarks(QStringView text);

} // namespace quor::toolkit
