// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Text/TextRange.h"

#include <QStringView>

#include <vector>

namespace quor::formkit {

/// The longest word whose spelling is checked, in UTF-16 units.
constexpr qsizetype longestSpelledWord = 100;

/// Returns the ranges of the words of `text` whose spelling can be checked, in their order: words of at least
/// two letters, perhaps with an apostrophe in them. Words with digits or other signs are left out, and so are
/// the parts of addresses, of names of files and hosts, and of abbreviations such as "e.g.". Linear in the
/// length of the text. Any thread.
[[nodiscard]] std::vector<platform::TextRange> spelledWords(QStringView text);

} // namespace quor::formkit
