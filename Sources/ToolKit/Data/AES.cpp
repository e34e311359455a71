// SPDX-License-Identifier: MIT
#include "ToolKit/Data/AES.h"

#include "ToolKit/Data/Base64.h"
#include "ToolKit/Data/SecretBytes.h"

#include <QStringConverter>

#include <openssl/crypto.h>
#include <openssl/err.h>
#include <openssl/evp.h>
#include <openssl/rand.h>

#include <algorithm>
#include <cstddef>
#include <memory>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

constexpr qsizetype keySize = 32;
constexpr qsizetype blockSize = 16; // of the cipher, and of what stands in front
constexpr qsizetype mostAtOnce = qsizetype(1) << 30; // OpenSSL counts in int

enum class Direction { decrypt = 0, encrypt = 1 };

struct FreeContext {
    void operator()(EVP_CIPHER_CTX* context) const { EVP_CIPHER_CTX_free(context); } // and wipes it
};

/// Keeps our failures out of the queue of errors that the thread's other users of OpenSSL look into.
class ErrorScope {
public:
    ErrorScope() { ERR_set_mark(); }
    ~ErrorScope() { ERR_pop_to_mark(); }
    ErrorScope(const ErrorScope&) = delete;
    ErrorScope& operator=(const ErrorScope&) = delete;

    /// Never 0.
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

SecretBytes cipherKey(QStringView text)
{
    const auto utf8 = SecretBytes::utf8(text);
    if (!utf8)
        throw AESError::KeyError(u"Invalid key"_s, 0);
    SecretBytes key(keySize);
    std::copy_n(utf8->data(), std::min(utf8->size(), keySize), key.data());
    return key;
}

// The number of bytes written, none on failure.
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

// `out` has room for the input, to encrypt for one block more.
qsizetype crypt(Direction direction, const SecretBytes& key, const char* iv, QByteArrayView in, char* out)
{
    const ErrorScope errors;
    const auto written = tryToCrypt(direction, key, iv, in, out);
    if (written)
        return *written;
    // What was decrypted before the failure is plain text.
    OPENSSL_cleanse(out, static_cast<std::size_t>(in.size()));
    throw AESError::CryptorError(
        direction == Direction::encrypt ? u"Encryption failed"_s : u"Decryption failed"_s,
        ErrorScope::status());
}

// Room for the plain bytes is `plainSize` of the same data.
qsizetype decryptInto(char* out, QByteArrayView data, const SecretBytes& key)
{
    return crypt(Direction::decrypt, key, data.data(), data.sliced(blockSize), out);
}

qsizetype plainSize(QByteArrayView data)
{
    if (data.size() < blockSize)
        throw AESError::CryptorError(
            u"Decryption failed"_s, static_cast<int>(ERR_PACK(ERR_LIB_EVP, 0, EVP_R_INVALID_IV_LENGTH)));
    return data.size() - blockSize;
}

std::optional<QString> textOfUtf8(const SecretBytes& utf8)
{
    // A byte order mark is a part of the text.
    QStringDecoder decoder(
        QStringDecoder::Utf8, QStringDecoder::Flag::Stateless | QStringDecoder::Flag::ConvertInitialBom);
    QString text(decoder.requiredSpace(utf8.size()), Qt::Uninitialized);
    const QChar* end = decoder.appendToBuffer(text.data(), QByteArrayView(utf8.data(), utf8.size()));
    if (decoder.hasError()) {
        OPENSSL_cleanse(text.data(), static_cast<std::size_t>(text.size()) * sizeof(QChar));
        return std::nullopt;
    }
    text.truncate(end - text.constData());
    return text;
}

} // namespace

QByteArray encrypt(QByteArrayView data, QStringView key)
{
    const SecretBytes secret = cipherKey(key);
    QByteArray result(data.size() + 2 * blockSize, Qt::Uninitialized);
    {
        const ErrorScope errors;
        if (RAND_bytes(bytes(result.data()), blockSize) != 1)
            throw AESError::IVError(u"IV generation failed"_s, ErrorScope::status());
    }
    const qsizetype written
        = crypt(Direction::encrypt, secret, result.constData(), data, result.data() + blockSize);
    result.truncate(blockSize + written);
    return result;
}

QByteArray decrypt(QByteArrayView data, QStringView key)
{
    const SecretBytes secret = cipherKey(key);
    QByteArray result(plainSize(data), Qt::Uninitialized);
    result.truncate(decryptInto(result.data(), data, secret));
    return result;
}

std::optional<QString> encrypted(QStringView text, QStringView key)
try {
    const auto utf8 = SecretBytes::utf8(text);
    if (!utf8)
        return std::nullopt;
    return base64EncodedString(encrypt({utf8->data(), utf8->size()}, key));
} catch (const AESError&) {
    return std::nullopt;
}

std::optional<QString> decrypted(QStringView text, QStringView key)
try {
    const auto data = dataFromBase64(text, Base64Decoding::ignoreUnknownCharacters);
    if (!data)
        return std::nullopt;
    const SecretBytes secret = cipherKey(key);
    SecretBytes plain(plainSize(*data));
    plain.truncate(decryptInto(plain.data(), *data, secret));
    return textOfUtf8(plain);
} catch (const AESError&) {
    return std::nullopt;
}

} // namespace quor::toolkit
