// SPDX-License-Identifier: MIT
#include "ToolKit/Data/Ciphers/AES.h"
#include "ToolKit/Data/Ciphers/Base64.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>

using namespace quor::toolkit;

// Any text. Text that the strict reader accepts is accepted by the tolerant one, with the same result;
// encoding the result and decoding it again returns the same bytes; a stored secret reads as no text, or as a
// text that can be stored again.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const auto* utf8 = reinterpret_cast<const char*>(bytes);
    const QString text = QString::fromUtf8(utf8, static_cast<qsizetype>(size));
    const auto strict = dataFromBase64(text, Base64Decoding::strict);
    const auto tolerant = dataFromBase64(text, Base64Decoding::ignoreUnknownCharacters);
    if (strict && strict != tolerant)
        std::abort();
    if (tolerant && dataFromBase64(base64EncodedString(*tolerant), Base64Decoding::strict) != tolerant)
        std::abort();
    const QString key = QStringLiteral("key");
    if (const auto secret = decrypted(text, key);
        secret && decrypted(*encrypted(*secret, key), key) != secret)
        std::abort();
    return 0;
}
