// SPDX-License-Identifier: MIT
#include "ToolKit/Data/Ciphers/Digest.h"

#include "ToolKit/Data/Ciphers/SecretBytes.h"

#include <openssl/evp.h>

#include <cstddef>

namespace quor::toolkit {

namespace {

std::optional<QString> digestText(QStringView text, bool useSHA256)
{
    const auto bytes = SecretBytes::utf8(text);
    if (!bytes)
        return std::nullopt;
    const QByteArray result = digest({bytes->data(), bytes->size()}, useSHA256);
    return result.isEmpty() ? std::nullopt : std::optional(hexadecimal(result));
}

} // namespace

QByteArray digest(QByteArrayView data, bool useSHA256)
{
    QByteArray result(useSHA256 ? 32 : 64, Qt::Uninitialized);
    if (EVP_Digest(data.data(), static_cast<std::size_t>(data.size()),
            reinterpret_cast<unsigned char*>(result.data()), nullptr, useSHA256 ? EVP_sha256() : EVP_sha512(),
            nullptr)
        != 1)
        return {};
    return result;
}

QString hexadecimal(QByteArrayView data)
{
    return QString::fromLatin1(QByteArray::fromRawData(data.data(), data.size()).toHex());
}

std::optional<QString> sha256(QStringView text)
{
    return digestText(text, true);
}

std::optional<QString> sha512(QStringView text)
{
    return digestText(text, false);
}

} // namespace quor::toolkit
