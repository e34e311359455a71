// SPDX-License-Identifier: MIT
#include "ToolKit/Data/Ciphers/AES.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace quor::toolkit;

// The first byte is the length of a key; the key and the ciphertext follow. Decryption returns bytes or
// throws the documented error, and decrypted bytes can be encrypted and decrypted again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    if (size == 0)
        return 0;
    const QByteArrayView input(bytes + 1, static_cast<qsizetype>(size - 1));
    const qsizetype keySize = std::min<qsizetype>(bytes[0], input.size());
    const QString key = QString::fromUtf8(input.first(keySize));
    const QByteArrayView data = input.sliced(keySize);
    try {
        const QByteArray plain = decrypt(data, key);
        if (plain.size() >= data.size() - 16 || decrypt(encrypt(plain, key), key) != plain)
            std::abort();
    } catch (const AESError& error) {
        if (error.status() == 0 || error.message() != QStringLiteral("Decryption failed"))
            std::abort();
    }
    const QByteArray sealed = encrypt(data, key);
    if (sealed.size() != 16 + (data.size() / 16 + 1) * 16 || decrypt(sealed, key) != data)
        std::abort();
    return 0;
}
