// SPDX-License-Identifier: MIT
#include "ToolKit/Data/Ciphers/SecretBytes.h"

#include <QStringConverter>

#include <openssl/crypto.h>

#include <cstddef>

namespace quor::toolkit {

SecretBytes::SecretBytes(qsizetype size)
    : bytes_(static_cast<std::size_t>(size))
    , size_(size)
{
}

SecretBytes::~SecretBytes()
{
    OPENSSL_cleanse(bytes_.data(), bytes_.size());
}

std::optional<SecretBytes> SecretBytes::utf8(QStringView text)
{
    QStringEncoder encoder(QStringEncoder::Utf8, QStringEncoder::Flag::Stateless);
    SecretBytes bytes(encoder.requiredSpace(text.size()));
    const char* end = encoder.appendToBuffer(bytes.data(), text);
    if (encoder.hasError())
        return std::nullopt;
    bytes.truncate(end - bytes.data());
    return bytes;
}

} // namespace quor::toolkit
