// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Data/Ciphers/SecretBytes.h"

#include <QByteArrayView>

namespace quor::toolkit::CBCCipher {

/// AES-256 in CBC mode with PKCS#7 padding, over plain memory: what `encrypt` and `decrypt` stand on.

constexpr qsizetype keySize = 32;
constexpr qsizetype blockSize = 16; ///< of the initialisation vector too

enum class Direction { decrypt = 0, encrypt = 1 };

/// Writes to `out`, which has room for the input and, to encrypt, one block more. Returns how much was
/// written. Throws a `CryptorError`; what had been decrypted till then is wiped.
qsizetype crypt(Direction direction, const SecretBytes& key, const char* iv, QByteArrayView in, char* out);

/// Fills `iv` with random bytes. Throws an `IVError`.
void generateIV(char* iv);

} // namespace quor::toolkit::CBCCipher
