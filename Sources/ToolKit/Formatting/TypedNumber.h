// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <unicode/decimfmt.h>

#include <memory>
#include <optional>

/// Numbers in texts that people type. Any thread.
namespace quor::toolkit {

/// Longer texts are not read: no finite number needs more, and ICU takes quadratic time for its digits.
constexpr qsizetype longestTypedNumber = 1000;

/// Makes texts equal that differ in case, width, script of digits, kind of blanks and quotes, and invisible
/// marks.
[[nodiscard]] QString folded(const QString& text);

/// The rules of the locale, without lenience: separators of thousands only at their places. Returns null if
/// ICU has no data.
[[nodiscard]] std::unique_ptr<icu::DecimalFormat> strictFormat(const icu::Locale& locale);

/// The number that the whole folded text says. Returns `nullopt` if a part of it is left over, and for a
/// negative number.
[[nodiscard]] std::optional<double> strictNumber(QString text, const icu::DecimalFormat& format);

} // namespace quor::toolkit
