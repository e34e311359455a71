// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <utility>

/// Small changes to texts. Positions and limits count characters as a user perceives them: a flag or an
/// accented letter is one character and is never divided. Any thread.
namespace quor::toolkit {

/// `text` without the characters / \ ? % * | " < >, which have a meaning for file systems and shells.
[[nodiscard]] QString withoutFileNameCharacters(const QString& text);

/// The ASCII letters and digits of `text`. Letters of other scripts are transliterated to Latin letters first
/// ("Größe 12!" becomes "Grosse12"); all other characters are left out. The first call on a thread takes some
/// milliseconds.
[[nodiscard]] QString asciiAlphanumerics(const QString& text);

/// `text` with `separator` between groups of `every` characters: "ABCD-EFGH". Returns `text` if `every` is
/// below 1.
[[nodiscard]] QString inserting(const QString& text, const QString& separator, qsizetype every);

/// `text` split in two at the middle one of its separators, which is dropped. If the number of separators is
/// even, the split is at the one before the middle. Without a separator in `text`, the first half is empty.
[[nodiscard]] std::pair<QString, QString> splitInHalf(const QString& text, const QString& separator);

/// If `text` has more than `limit` characters, its first `limit` characters followed by `suffix`; else
/// `text`. The suffix does not count towards the limit. A negative limit means 0.
[[nodiscard]] QString truncated(const QString& text, qsizetype limit, const QString& suffix);

/// `text` with its first character in title case, which for most characters is upper case. The rest does not
/// change.
[[nodiscard]] QString capitalizedFirstLetter(const QString& text);
/// Does the same in place.
void capitalizeFirstLetter(QString& text);

/// The characters for which `isEmoji` is false; digits stay.
[[nodiscard]] QString withoutEmoji(QStringView text);

/// The characters for which `isEmoji` is true.
[[nodiscard]] QString emojiOnly(QStringView text);

} // namespace quor::toolkit
