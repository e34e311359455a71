// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Text/TextRange.h"

#include <QStringView>

#include <vector>

/// Finds the three kinds of Markdown marks that interface texts may bear.
///
/// Each finder gives what its pattern, an ICU regular expression, matches from left to right. It walks
/// the text once, where a search by the pattern may take a time that grows with the square of the
/// text. Ranges are in order and never overlap. Any thread.
namespace quor::toolkit {

struct MarkdownMark {
    platform::TextRange opening; ///< what goes in front of the content; for an image, all of it
    platform::TextRange content; ///< what stays
    platform::TextRange closing; ///< what goes behind the content
    platform::TextRange argument; ///< a link's destination, an image's name
};

constexpr QStringView linkPattern = u"(\\[)([\\w\\s\\d&\\-\\.]+)(\\]\\(([\\w\\d./?\\-:=#@]+)\\))";
constexpr QStringView boldPattern = u"(.?|^)(\\*\\*|__)(.+?)(\\2)";
constexpr QStringView imagePattern = u"(!\\[\\]\\(([\\.\\_\\-\\w\\d]+)\\))";

[[nodiscard]] std::vector<MarkdownMark> linkMarks(QStringView text);
[[nodiscard]] std::vector<MarkdownMark> boldMarks(QStringView text);
[[nodiscard]] std::vector<MarkdownMark> imageMarks(QStringView text);

} // namespace quor::toolkit
