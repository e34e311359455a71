// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <optional>

/// Questions about one character as a user perceives it, which may be several code points: an element of
/// `GraphemeClusters::characters`. Stateless; any thread.
namespace quor::toolkit {

/// Whether it is one of "0" to "9", with nothing added to it: not a keycap, nor a digit of another script.
[[nodiscard]] bool isDigit(QStringView character);

/// Whether its first scalar has the Unicode property Emoji, and it is no digit. So "#" and "*" are emoji.
[[nodiscard]] bool isEmoji(QStringView character);

/// Absent for an empty one, and for one that begins with half a surrogate pair.
[[nodiscard]] std::optional<char32_t> firstScalar(QStringView character);

} // namespace quor::toolkit
