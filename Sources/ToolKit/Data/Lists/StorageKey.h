// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

namespace quor::toolkit {

/// The name of the file in which a `PersistableList` keeps the element of this key: the key's last two
/// characters as a user perceives them, upper-cased (`task-9f3a` is in `3A`); of one character, that
/// one. Empty for an empty key. Depends on no locale.
///
/// It is always the name of a visible file within the list's folder. What cannot stand in one is
/// escaped, reversibly, each as `%` and two hexadecimal digits for each byte of its UTF-8: the slash,
/// control characters (NUL among them), the percent sign itself, and in front a dot or a byte order
/// mark. So `a/b` is in `%2FB`, `..` in `%2E.` and `50%` in `0%25`. A name over 255 bytes, as a letter
/// under hundreds of accents has, is cut there: keys that then share a file are told apart inside it
/// like all others.
[[nodiscard]] QString storageKey(QStringView elementKey);

} // namespace quor::toolkit
