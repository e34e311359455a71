// SPDX-License-Identifier: MIT
// Bytes that the process of a script may send: they are refused, or are a message that can be written again.
#include "ToolKit/JavaScript/Hosting/ScriptMessage.h"

#include <cstdint>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    using namespace quor::toolkit;
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const auto message = ScriptMessage::decoded(bytes, {});
    if (!message)
        return 0;
    const QByteArray again = message->encoded([](const ScriptValue::Function&) -> quint32 { std::abort(); });
    const auto copy = ScriptMessage::decoded(again, {});
    if (!copy || copy->operation != message->operation
        || plainText(copy->values) != plainText(message->values))
        std::abort();
    return 0;
}
