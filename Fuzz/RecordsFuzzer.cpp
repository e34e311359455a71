// SPDX-License-Identifier: MIT
// The records that the applications exchange: a record that can be decoded can be encoded, and decoding that
// returns an equal record.
#include "InterAppCommBridge/RecordCoding.h"
#include "ToolKit/Data/JSON/JSONDecoder.h"
#include "ToolKit/Data/JSON/JSONEncoder.h"

#include <QJsonValue>

#include <cstdlib>

namespace {

template <typename Record>
void checkRoundTrip(const QByteArray& text)
{
    quor::toolkit::DecodingError error;
    const auto record = quor::toolkit::JSONDecoder().decode<Record>(text, &error);
    if (!record) {
        if (error.description.isEmpty())
            std::abort();
        return;
    }
    const auto encoded = quor::toolkit::JSONEncoder().encode(*record);
    if (!encoded || quor::toolkit::JSONDecoder().decode<Record>(*encoded) != record)
        std::abort();
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    const QByteArray text(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    checkRoundTrip<quor::MenubarStatusItemData>(text);
    checkRoundTrip<std::vector<quor::MenuEntry>>(text);
    checkRoundTrip<quor::GroupStorage::Action>(text);
    checkRoundTrip<QJsonValue>(text);
    return 0;
}
