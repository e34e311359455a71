// SPDX-License-Identifier: MIT
#include "ToolKit/Data/Ciphers/CBCCipher.h"

#include "ToolKit/Data/Ciphers/AESError.h"

#include <openssl/crypto.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/rand.h>

#include <algorithm>
#include <cstddef>
#include <memory>
#include <optional>

using namespace Qt::StringLiterals;

namespace quor::toolkit::CBCCipher {

namespace {

constexpr qsizetype mostAtOnce = qsizetype(1) << 30; // since OpenSSL takes the size as an int

struct FreeContext {
    void operator()(EVP_CIPHER_CTX* context) const { EVP_CIPHER_CTX_free(context); } // wipes it too
};

/// Removes our errors from OpenSSL's error queue of this thread at its end, as other code looks there too.
class ErrorScope {
public:
    ErrorScope() { ERR_set_mark(); }
    ~ErrorScope() { ERR_pop_to_mark(); }
    ErrorScope(const ErrorScope&) = delete;
    ErrorScope& operator=(const ErrorScope&) = delete;

    /// The last error. Never 0.
    [[nodiscard]] static int status()
    {
        const auto code = static_cast<int>(ERR_peek_last_error());
        return code != 0 ? code : -1;
    }
};

unsigned char* bytes(char* data)
{
    return reinterpret_cast<unsigned char*>(data);
}

const unsigned char* bytes(const char* data)
{
    return reinterpret_cast<const unsigned char*>(data);
}

// Returns the number of bytes written, or `nullopt` on failure.
std::optional<qsizetype> tryToCrypt(
    Direction direction, const SecretBytes& key, const char* iv, QByteArrayView in, char* out)
{
    const std::unique_ptr<EVP_CIPHER_CTX, FreeContext> context(EVP_CIPHER_CTX_new());
    if (!context
        || EVP_CipherInit_ex2(context.get(), EVP_aes_256_cbc(), bytes(key.data()), bytes(iv),
               static_cast<int>(direction), nullptr)
            != 1)
        return std::nullopt;
    qsizetype written = 0;
    int count = 0;
    for (qsizetype at = 0; at < in.size(); at += mostAtOnce) {
        const auto size = static_cast<int>(std::min(mostAtOnce, in.size() - at));
        if (EVP_CipherUpdate(context.get(), bytes(out + written), &count, bytes(in.data() + at), size) != 1)
            return std::nullopt;
        written += count;
    }
    if (EVP_CipherFinal_ex(context.get(), bytes(out + written), &count) != 1)
        return std::nullopt;
    return written + count;
}

} // namespace

qsizetype crypt(Direction direction, const SecretBytes& key, const char* iv, QByteArrayView in, char* out)
{
    const ErrorScope errors;
    if (const auto written = tryToCrypt(direction, key, iv, in, out))
        return *written;
    OPENSSL_cleanse(out, static_cast<std::size_t>(in.size()));
    throw AESError::CryptorError(
        direction == Direction::encrypt ? u"Encryption failed"_s : u"Decryption failed"_s,
        ErrorScope::status());
}

void generateIV(char* iv)
{
    const ErrorScope errors;
    if (RAND_bytes(bytes(iv), blockSize) != 1)
        throw AESError::IVError(u"IV generation failed"_s, ErrorScope::status());
}

} // namespace quor::toolkit::CBCCipher
