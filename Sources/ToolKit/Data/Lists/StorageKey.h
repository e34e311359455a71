// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

namespace quor::toolkit {

/// Returns the name of the file in which a `PersistableList` keeps the element of this key: the last two
/// characters of the key as a user perceives them, upper-cased independently of the locale. `task-9f3a` is in
/// `3A`, and a key of one character is in the file of that character. Empty for an empty key.
///
/// The name is always that of a visible file inside the folder. A slash, a control character (NUL too) and a
/// percent sign are escaped, and so are a dot and a byte order mark at the beginning: each byte of their
/// UTF-8 becomes `%` and two hexadecimal digits. So `a/b` is in `%2FB`, `..` in `%2E.` and `50%` in `0%25`.
/// A name of more than 255 bytes (a letter with hundreds of accents) is cut there. Keys with the same file
/// name share the file.
[[nodiscard]] QString storageKey(QStringView elementKey);

} // namespace quor::toolkit
