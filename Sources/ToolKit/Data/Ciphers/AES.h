// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Data/Ciphers/AESError.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

/// A cipher for short secrets that are kept as text: AES-256-CBC with PKCS#7 padding, under a key that
/// the caller holds as text.
///
/// A ciphertext is 16 random bytes, fresh for each encryption, and then the plain bytes rounded up to
/// the next multiple of 16. It carries no version, salt or authentication tag: one that was tampered
/// with, or a wrong key, usually fails, but may give wrong bytes. The key is the first 32 bytes of its
/// UTF-8, filled up with zero bytes and not derived in any way, so an empty one is valid and as weak as
/// it looks. Keys and plain texts are wiped from the buffers of these functions; those of the caller,
/// the results too, are the caller's to wipe. Stateless; any thread; nothing is logged.
namespace quor::toolkit {

/// Throws `AESError`: "Invalid key" with status 0 for a key with half a surrogate pair, "IV generation
/// failed" and "Encryption failed" with OpenSSL's code.
[[nodiscard]] QByteArray encrypt(QByteArrayView data, QStringView key);

/// What `encrypt` was given. Throws `AESError`: "Invalid key" as above, "Decryption failed" with OpenSSL's
/// code, also for data that `encrypt` cannot have made: shorter than 32 bytes, or no multiple of 16.
[[nodiscard]] QByteArray decrypt(QByteArrayView data, QStringView key);

/// The text's UTF-8 encrypted, in base64 without line breaks. Nothing on failure, or for a text with half
/// a surrogate pair, which has no UTF-8.
[[nodiscard]] std::optional<QString> encrypted(QStringView text, QStringView key);

/// The text that `encrypted` was given. Characters that are not base64, line breaks above all, are
/// skipped. Nothing on failure, or where the plain bytes are no valid UTF-8, as most are under a wrong key.
[[nodiscard]] std::optional<QString> decrypted(QStringView text, QStringView key);

} // namespace quor::toolkit
