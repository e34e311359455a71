// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

/// SHA-2 digests of bytes and of texts. Not for storing passwords, as these digests are fast to compute and
/// so fast to guess. The UTF-8 of a text is wiped from memory after use. Stateless. Any thread. Nothing is
/// logged.
namespace quor::toolkit {

/// Returns the SHA-256 (32 bytes) or SHA-512 (64 bytes). Empty only if OpenSSL is configured without it.
[[nodiscard]] QByteArray digest(QByteArrayView data, bool useSHA256);

/// Returns two lower-case hexadecimal digits for each byte, with nothing between them.
[[nodiscard]] QString hexadecimal(QByteArrayView data);

/// Return the digest of the text's UTF-8 in 64 or 128 hexadecimal digits. Return `nullopt` for a text with
/// half of a surrogate pair, which has no UTF-8.
[[nodiscard]] std::optional<QString> sha256(QStringView text);
[[nodiscard]] std::optional<QString> sha512(QStringView text);

} // namespace quor::toolkit
