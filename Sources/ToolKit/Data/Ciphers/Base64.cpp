// SPDX-License-Identifier: MIT
#include "ToolKit/Data/Ciphers/Base64.h"

namespace quor::toolkit {

namespace {

bool isOfBase64(char16_t unit)
{
    return (unit >= u'A' && unit <= u'Z') || (unit >= u'a' && unit <= u'z') || (unit >= u'0' && unit <= u'9')
        || unit == u'+' || unit == u'/' || unit == u'=';
}

} // namespace

QString base64EncodedString(QByteArrayView data)
{
    return QString::fromLatin1(QByteArray::fromRawData(data.data(), data.size()).toBase64());
}

std::optional<QByteArray> dataFromBase64(QStringView text, Base64Decoding decoding)
{
    QByteArray characters(text.size(), Qt::Uninitialized);
    char* end = characters.data();
    for (const QChar character : text) {
        if (isOfBase64(character.unicode()))
            *end++ = character.toLatin1();
        else if (decoding == Base64Decoding::strict)
            return std::nullopt;
    }
    characters.truncate(end - characters.constData());
    // Qt's decoder accepts texts without padding.
    if (characters.size() % 4 != 0)
        return std::nullopt;
    auto result = QByteArray::fromBase64Encoding(
        std::move(characters), QByteArray::Base64Encoding | QByteArray::AbortOnBase64DecodingErrors);
    return result ? std::optional(std::move(*result)) : std::nullopt;
}

} // namespace quor::toolkit
