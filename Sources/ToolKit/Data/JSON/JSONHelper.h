// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Data/JSON/JSONDecoder.h"
#include "ToolKit/Data/JSON/JSONEncoder.h"
#include "ToolKit/Logging/Logger.h"

#include <QByteArray>
#include <QJsonObject>

#include <optional>

/// Converts values and dictionaries to JSON and back. After a failure the result is `nullopt`. The failure of
/// a typed value is also written to the error log, with the reason:
///
///     JSONHelper.decode:31: decodeError: There is no value for the key "name". (at [2])
///
/// Any thread.
namespace quor::toolkit::JSONHelper {

/// Returns `nullopt` on failure. Also for absent or empty data, without a line in the log.
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

/// Returns `nullopt` on failure.
template <typename T>
[[nodiscard]] std::optional<QByteArray> encode(const T& object, const JSONEncoder& encoder)
{
    EncodingError error;
    auto data = encoder.encode(object, &error);
    if (!data)
        Logger::log(QStringLiteral("encodeError: ") + error.description, __FILE__, __func__, __LINE__, true);
    return data;
}

/// Returns `nullopt` for an absent object too, without a line in the log.
template <typename T>
[[nodiscard]] std::optional<QByteArray> encode(const std::optional<T>& object, const JSONEncoder& encoder)
{
    return object ? encode(*object, encoder) : std::nullopt;
}

/// Returns the JSON in several lines, or `nullopt` on failure. Nothing is logged.
[[nodiscard]] std::optional<QByteArray> dataFromDictionary(const QJsonObject& dictionary);

/// Returns `nullopt` on failure, and if the JSON is not an object. Nothing is logged.
[[nodiscard]] std::optional<QJsonObject> dictionaryFromData(const QByteArray& data);

} // namespace quor::toolkit::JSONHelper
