// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

/// SHA-2 digests of bytes and of texts, and their text form. Not for passwords: they are fast to guess.
/// The UTF-8 of a text is wiped from memory after use. Stateless; any thread; nothing is logged.
namespace quor::toolkit {

/// SHA-256 in 32 bytes, or SHA-512 in 64; empty only on a system whose OpenSSL is configured without it.
[[nodiscard]] QByteArray digest(QByteArrayView data, bool useSHA256);

/// Two lower-case digits for each byte, nothing between them; empty for no bytes.
[[nodiscard]] QString hexadecimal(QByteArrayView data);

/// The digest of the text's UTF-8 in 64 or 128 hexadecimal digits. Nothing for a text with half a surrogate
/// pair, which has no UTF-8.
[[nodiscard]] std::optional<QString> sha256(QStringView text);
[[nodiscard]] std::optional<QString> sha512(QStringView text);

} // namespace quor::toolkit
