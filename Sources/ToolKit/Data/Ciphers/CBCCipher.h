// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Data/Ciphers/SecretBytes.h"

#include <QByteArrayView>

/// AES-256 in CBC mode with PKCS#7 padding, from buffer to buffer. `encrypt` and `decrypt` are built on it.
/// Stateless. Any thread.
namespace quor::toolkit::CBCCipher {

constexpr qsizetype keySize = 32;
constexpr qsizetype blockSize = 16; ///< Also the size of the initialisation vector.

enum class Direction { decrypt = 0, encrypt = 1 };

/// Encrypts or decrypts `in` into `out` and returns the number of bytes written. `out` must have the size of
/// `in`, plus one block for encryption. Throws a `CryptorError` on failure, and wipes what was written.
qsizetype crypt(Direction direction, const SecretBytes& key, const char* iv, QByteArrayView in, char* out);

/// Fills `iv`, of `blockSize` bytes, with random bytes. Throws an `IVError` on failure.
void generateIV(char* iv);

} // namespace quor::toolkit::CBCCipher
