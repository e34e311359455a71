// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

/// Bytes as text in standard base64 (RFC 4648, section 4) and back. Stateless; any thread.
namespace quor::toolkit {

/// What to do about a character outside the alphabet and "=".
enum class Base64Decoding {
    strict, ///< the whole text is refused
    ignoreUnknownCharacters, ///< it is skipped, as line breaks and blanks of a wrapped text should be
};

/// With padding, without line breaks; empty for no bytes.
[[nodiscard]] QString base64EncodedString(QByteArrayView data);

/// Nothing where the length of what is read is no multiple of 4, or "=" stands anywhere but as the last
/// one or two characters. Empty for an empty text.
[[nodiscard]] std::optional<QByteArray> dataFromBase64(QStringView text, Base64Decoding decoding);

} // namespace quor::toolkit
