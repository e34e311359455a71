// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

/// Standard Base64 (RFC 4648, section 4). Stateless. Any thread.
namespace quor::toolkit {

/// What happens with a character that is neither in the alphabet nor "=".
enum class Base64Decoding {
    strict, ///< The whole text is refused.
    ignoreUnknownCharacters, ///< It is ignored. For texts with line breaks.
};

/// Returns the bytes in Base64, with padding and without line breaks.
[[nodiscard]] QString base64EncodedString(QByteArrayView data);

/// Returns the bytes of a text in Base64; no bytes for an empty text. Returns `nullopt` if the number of
/// characters (without ignored ones) is no multiple of 4, or if there is an "=" before the last two.
[[nodiscard]] std::optional<QByteArray> dataFromBase64(QStringView text, Base64Decoding decoding);

} // namespace quor::toolkit
