// SPDX-License-Identifier: MIT
#include "ToolKit/Data/SecretBytes.h"

#include <QStringConverter>

#include <openssl/crypto.h>

#include <cstddef>
#include <utility>

namespace quor::toolkit {

SecretBytes::SecretBytes(qsizetype size)
    : bytes_(std::make_unique<char[]>(static_cast<std::size_t>(size)))
    , capacity_(size)
    , size_(size)
{
}

SecretBytes::~SecretBytes()
{
    OPENSSL_cleanse(bytes_.get(), static_cast<std::size_t>(capacity_));
}

SecretBytes::SecretBytes(SecretBytes&& other) noexcept
    : bytes_(std::move(other.bytes_))
    , capacity_(std::exchange(other.capacity_, 0))
    , size_(std::exchange(other.size_, 0))
{
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
