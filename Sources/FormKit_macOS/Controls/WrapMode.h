// SPDX-License-Identifier: MIT
#pragma once

#include <QTextOption>

namespace quor::formkit {

/// Returns how the lines of `text` break: between words where possible, but anywhere if there is a word of
/// more than 1,000 characters. Qt needs the square of a word's length to find that it has to break within the
/// word.
[[nodiscard]] QTextOption::WrapMode wrapModeFor(QStringView text);

} // namespace quor::formkit
