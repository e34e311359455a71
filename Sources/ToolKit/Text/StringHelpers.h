// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <utility>

/// Small changes to texts. Positions and limits count characters as a user perceives them: a flag or an
/// accented letter is one, and never cut apart. None of these fails. Stateless; any thread.
namespace quor::toolkit {

/// Without the characters / \ ? % * | " < >, which file systems or shells take for their own.
[[nodiscard]] QString withoutFileNameCharacters(const QString& text);

/// ASCII letters and digits alone: other scripts are spelled in Latin letters first ("Größe 12!" gives
/// "Grosse12"), and what cannot be is left out. The first call on a thread takes some milliseconds.
[[nodiscard]] QString asciiAlphanumerics(const QString& text);

/// With `separator` between groups of `n` characters, never in front or at the end: "ABCD-EFGH". The
/// text unchanged where `n` is below 1.
[[nodiscard]] QString inserting(const QString& text, const QString& separator, qsizetype n);

/// The text split in two at the separator in the middle, which goes; of an even number of separators, at
/// the one before the middle. Without a separator, nothing and the whole text.
[[nodiscard]] std::pair<QString, QString> splitInHalf(const QString& text, const QString& separator);

/// The first `limit` characters and `suffix`, if the text has more than that; else the text unchanged. The
/// suffix does not count. A negative limit counts as 0.
[[nodiscard]] QString truncated(const QString& text, qsizetype limit, const QString& suffix);

/// With its first character in title case, which is upper case for most, and the rest as it stands.
[[nodiscard]] QString capitalizedFirstLetter(const QString& text);
/// The same in place.
void capitalizeFirstLetter(QString& text);

/// The characters for which `isEmoji` is false; digits stay.
[[nodiscard]] QString withoutEmoji(QStringView text);

/// The characters for which `isEmoji` is true.
[[nodiscard]] QString emojiOnly(QStringView text);

} // namespace quor::toolkit
