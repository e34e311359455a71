// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Data/JSON/JSONDecoder.h"
#include "ToolKit/Data/JSON/JSONEncoder.h"
#include "ToolKit/Logging/Logger.h"

#include <QByteArray>
#include <QJsonObject>

#include <optional>

/// Values and string-keyed dictionaries to JSON and back, where a failure is no more than an empty
/// result. A typed value that fails also leaves its reason in the error log:
///
///     JSONHelper.decode:31: decodeError: There is no value for the key "name". (at [2])
///
/// Any thread.
namespace quor::toolkit::JSONHelper {

/// Nothing, and no line in the log, for absent or empty data.
template <typename T>
[[nodiscard]] std::optional<T> decode(const std::optional<QByteArray>& data, const JSONDecoder& decoder)
{
    if (!data || data->isEmpty())
        return std::nullopt;
    DecodingError error;
    auto value = decoder.decode<T>(*data, &error);
    if (!value)
        Logger::log(QStringLiteral("decodeError: ") + error.text(), __FILE__, __func__, __LINE__, true);
    return value;
}

template <typename T>
[[nodiscard]] std::optional<QByteArray> encode(const T& object, const JSONEncoder& encoder)
{
    EncodingError error;
    auto data = encoder.encode(object, &error);
    if (!data)
        Logger::log(QStringLiteral("encodeError: ") + error.description, __FILE__, __func__, __LINE__, true);
    return data;
}

/// Nothing for an absent object.
template <typename T>
[[nodiscard]] std::optional<QByteArray> encode(const std::optional<T>& object, const JSONEncoder& encoder)
{
    return object ? encode(*object, encoder) : std::nullopt;
}

/// Pretty printed. Nothing on failure; nothing is logged.
[[nodiscard]] std::optional<QByteArray> dataFromDictionary(const QJsonObject& dictionary);

/// Nothing on failure, or where the JSON is no object at the top; nothing is logged.
[[nodiscard]] std::optional<QJsonObject> dictionaryFromData(const QByteArray& data);

} // namespace quor::toolkit::JSONHelper
