// SPDX-License-Identifier: MIT
// The files of a list. Any key leads to the name of a visible file inside the list's folder.
#include "ToolKit/Data/JSON/JSONDecoder.h"
#include "ToolKit/Data/JSON/JSONEncoder.h"
#include "ToolKit/Data/Lists/StorageKey.h"

#include <cstdlib>

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

void checkName(const QString& key)
{
    const QByteArray name = quor::toolkit::storageKey(key).toUtf8();
    require(name.isEmpty() == key.isEmpty());
    require(!name.startsWith('.') && !name.contains('/') && name.size() <= 255);
    for (const char byte : name)
        require(static_cast<unsigned char>(byte) >= 0x20 && byte != 0x7F);
}

template <typename Element>
void checkFile(const QByteArray& content)
{
    using Entries = QHash<QString, Element>;
    const auto entries = quor::toolkit::JSONDecoder().decode<Entries>(content);
    if (!entries)
        return;
    const auto encoded = quor::toolkit::JSONEncoder().encode(*entries);
    require(encoded && quor::toolkit::JSONDecoder().decode<Entries>(*encoded) == entries);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    checkName(QString::fromUtf8(bytes));
    checkName(QString::fromUtf16(reinterpret_cast<const char16_t*>(bytes.constData()), bytes.size() / 2));
    checkFile<QJsonValue>(bytes);
    checkFile<double>(bytes);
    return 0;
}
