// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Data/Ciphers/AESError.h"

#include <QByteArray>
#include <QByteArrayView>
#include <QString>

#include <optional>

/// A cipher for short secrets that are stored as text: AES-256-CBC with PKCS#7 padding, with a key that is
/// a text too.
///
/// A ciphertext consists of 16 random bytes, new ones for each encryption, and the encrypted bytes, padded to
/// the next multiple of 16. It has no version, salt or authentication tag: decrypting a modified ciphertext,
/// or with a wrong key, usually fails, but may also return wrong bytes. The cipher's key is the first 32
/// bytes of the text's UTF-8, padded with zero bytes and not derived in any way; so an empty key is valid,
/// and weak. These functions wipe keys and plain texts from their own buffers; wiping arguments and results
/// is up to the caller. Stateless. Any thread. Nothing is logged.
namespace quor::toolkit {

/// Returns the ciphertext. Throws `AESError`: "Invalid key" with status 0 for a key with half of a surrogate
/// pair, "IV generation failed" or "Encryption failed" with OpenSSL's error code.
[[nodiscard]] QByteArray encrypt(QByteArrayView data, QStringView key);

/// Returns the data that `encrypt` was called with. Throws `AESError`: "Invalid key" as above, or "Decryption
/// failed" with OpenSSL's error code, for a wrong key or for data that is no ciphertext.
[[nodiscard]] QByteArray decrypt(QByteArrayView data, QStringView key);

/// Encrypts the text's UTF-8 and returns the ciphertext in Base64 without line breaks. Returns `nullopt` on
/// failure, and for a text with half of a surrogate pair, which has no UTF-8.
[[nodiscard]] std::optional<QString> encrypted(QStringView text, QStringView key);

/// Returns the text that `encrypted` was called with. Ignores characters that are not of Base64, such as line
/// breaks. Returns `nullopt` on failure, and if the decrypted bytes are no valid UTF-8, as with most wrong
/// keys.
[[nodiscard]] std::optional<QString> decrypted(QStringView text, QStringView key);

} // namespace quor::toolkit
