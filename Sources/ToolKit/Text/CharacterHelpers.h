// SPDX-License-Identifier: MIT
#pragma once

#include <QStringView>

#include <optional>

/// Properties of one character as a user perceives it, which can consist of several code points: an element
/// of `GraphemeClusters::characters`. Any thread.
namespace quor::toolkit {

/// Whether the character is one of "0" to "9". False for keycaps and for the digits of other scripts.
[[nodiscard]] bool isDigit(QStringView character);

/// Whether the first scalar of the character has the Unicode property Emoji and the character is no digit.
/// True for "#" and "*", too.
[[nodiscard]] bool isEmoji(QStringView character);

/// The first Unicode scalar. Returns `nullopt` for an empty text and for one that begins with a lone
/// surrogate.
[[nodiscard]] std::optional<char32_t> firstScalar(QStringView character);

} // namespace quor::toolkit
