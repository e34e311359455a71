// SPDX-License-Identifier: MIT
#include "ToolKit/Data/Ciphers/AES.h"

#include "ToolKit/Data/Ciphers/Base64.h"
#include "ToolKit/Data/Ciphers/CBCCipher.h"
#include "ToolKit/Data/Ciphers/SecretBytes.h"

#include <QStringConverter>

#include <openssl/crypto.h>
#include <openssl/err.h>
#include <openssl/evp.h>

#include <algorithm>
#include <cstddef>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

namespace {

using CBCCipher::blockSize;
using CBCCipher::keySize;

SecretBytes cipherKey(QStringView text)
{
    const auto utf8 = SecretBytes::utf8(text);
    if (!utf8)
        throw AESError::KeyError(u"Invalid key"_s, 0);
    SecretBytes key(keySize);
    std::copy_n(utf8->data(), std::min(utf8->size(), keySize), key.data());
    return key;
}

/// Returns the size of a buffer for the decrypted bytes. Throws if `data` is too short.
qsizetype plainSize(QByteArrayView data)
{
    if (data.size() < blockSize)
        throw AESError::CryptorError(
            u"Decryption failed"_s, static_cast<int>(ERR_PACK(ERR_LIB_EVP, 0, EVP_R_INVALID_IV_LENGTH)));
    return data.size() - blockSize;
}

qsizetype decryptInto(char* out, QByteArrayView data, const SecretBytes& key)
{
    return CBCCipher::crypt(CBCCipher::Direction::decrypt, key, data.data(), data.sliced(blockSize), out);
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
    char* const iv = result.data();
    CBCCipher::generateIV(iv);
    const auto written = CBCCipher::crypt(CBCCipher::Direction::encrypt, secret, iv, data, iv + blockSize);
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
