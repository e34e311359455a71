// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Data/JSON/DecodingError.h"
#include "ToolKit/Data/JSON/JSONValue.h"
#include "ToolKit/Data/JSON/JSONWriter.h"

#include <QByteArray>
#include <QHash>
#include <QJsonObject>
#include <QJsonValue>
#include <QList>
#include <QSet>
#include <QString>

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <concepts>
#include <optional>
#include <type_traits>
#include <utility>
#include <vector>

/// How values of one type are read from JSON and written to it. There are codings for booleans, numbers of
/// every width, texts, bytes, optionals, lists, string-keyed hashes, Qt's JSON values, and all types with
/// `JSONFields` or `JSONCases` (in JSONRecordCoding.h). Specialise it for a type of another form.
///
/// `decode` replaces `out` and returns true; or it sets `error`, returns false, and leaves `out` in an
/// undefined state. It is also called with null and, for optionals, with an absent value. `encode` writes
/// exactly one value.
namespace quor::toolkit {

template <typename T>
struct JSONCoding;

namespace json {

inline constexpr QLatin1StringView objectName("an object");
inline constexpr QLatin1StringView arrayName("an array");
inline constexpr QLatin1StringView floatName("a number of 32 bits");

template <typename Integer>
constexpr QLatin1StringView integerName()
{
    constexpr auto names = std::to_array<QLatin1StringView>(
        {QLatin1StringView("an unsigned integer of 8 bits"), QLatin1StringView("an integer of 8 bits"),
            QLatin1StringView("an unsigned integer of 16 bits"), QLatin1StringView("an integer of 16 bits"),
            QLatin1StringView("an unsigned integer of 32 bits"), QLatin1StringView("an integer of 32 bits"),
            QLatin1StringView("an unsigned integer"), QLatin1StringView("an integer")});
    return names[2 * std::countr_zero(sizeof(Integer)) + std::is_signed_v<Integer>];
}

/// Sets the error of a value that is not of the expected kind ("a text"). Returns false.
bool mismatch(DecodingError& error, QLatin1StringView expected, JSONValue found);
/// The same for a number that the type cannot hold. Returns false.
bool unsuitableNumber(DecodingError& error, QLatin1StringView expected, JSONValue found);

/// The largest number of elements for which memory is reserved before they are read.
inline constexpr std::uint32_t mostReserved = 4096;

} // namespace json

/// The integer types for numbers, without the types for booleans and characters.
template <typename T>
concept JSONInteger
    = std::integral<T> && !std::same_as<T,
          bool> && !std::same_as<T, char> && !std::same_as<T, wchar_t> && !std::same_as<T, char8_t> && !std::same_as<T, char16_t> && !std::same_as<T, char32_t>;

template <>
struct JSONCoding<bool> {
    static bool decode(JSONValue value, bool& out, DecodingError& error);
    static void encode(bool value, JSONWriter& writer) { writer.boolean(value); }
};

template <>
struct JSONCoding<double> {
    static bool decode(JSONValue value, double& out, DecodingError& error);
    static void encode(double value, JSONWriter& writer) { writer.number(value); }
};

/// Fails for a number beyond the range of a `float`; others are rounded.
template <>
struct JSONCoding<float> {
    static bool decode(JSONValue value, float& out, DecodingError& error)
    {
        double number = 0;
        if (!JSONCoding<double>::decode(value, number, error))
            return false;
        out = static_cast<float>(number);
        return std::isfinite(out) || json::unsuitableNumber(error, json::floatName, value);
    }
    static void encode(float value, JSONWriter& writer) { writer.number(double(value)); }
};

/// Integers of any width. Fails for a number that is not integral (3.0 is) or out of the type's range.
template <JSONInteger Integer>
struct JSONCoding<Integer> {
    static bool decode(JSONValue value, Integer& out, DecodingError& error)
    {
        const auto number = [value] {
            if constexpr (std::is_signed_v<Integer>)
                return value.toSigned();
            else
                return value.toUnsigned();
        }();
        if (!number || !std::in_range<Integer>(*number))
            return json::unsuitableNumber(error, json::integerName<Integer>(), value);
        out = static_cast<Integer>(*number);
        return true;
    }
    static void encode(Integer value, JSONWriter& writer)
    {
        if constexpr (std::is_signed_v<Integer>)
            writer.number(std::int64_t(value));
        else
            writer.number(std::uint64_t(value));
    }
};

template <>
struct JSONCoding<QString> {
    static bool decode(JSONValue value, QString& out, DecodingError& error);
    static void encode(const QString& value, JSONWriter& writer) { writer.text(value); }
};

/// As a text in standard Base64 with padding.
template <>
struct JSONCoding<QByteArray> {
    static bool decode(JSONValue value, QByteArray& out, DecodingError& error);
    static void encode(const QByteArray& value, JSONWriter& writer);
};

/// Any JSON value. Signed integers of up to 64 bits are exact. An undefined value is written as null.
template <>
struct JSONCoding<QJsonValue> {
    static bool decode(JSONValue value, QJsonValue& out, DecodingError& error);
    static void encode(const QJsonValue& value, JSONWriter& writer);
};

template <>
struct JSONCoding<QJsonObject> {
    static bool decode(JSONValue value, QJsonObject& out, DecodingError& error);
    static void encode(const QJsonObject& object, JSONWriter& writer);
};

template <typename T>
struct JSONCoding<std::optional<T>> {
    static bool decode(JSONValue value, std::optional<T>& out, DecodingError& error)
    {
        out.reset();
        return value.isAbsent() || value.isNull() || JSONCoding<T>::decode(value, out.emplace(), error);
    }
    static void encode(const std::optional<T>& value, JSONWriter& writer)
    {
        value ? JSONCoding<T>::encode(*value, writer) : writer.null();
    }
};

namespace json {

template <typename T, typename List>
bool decodeList(JSONValue value, List& out, DecodingError& error)
{
    if (!value.isArray())
        return mismatch(error, arrayName, value);
    out.clear();
    out.reserve(std::min(value.count(), mostReserved));
    bool succeeded = true;
    value.forEachElement([&](JSONValue element) {
        if constexpr (std::is_same_v<T, bool>) { // a vector has no references to them
            bool flag = false;
            succeeded = JSONCoding<bool>::decode(element, flag, error);
            out.push_back(flag);
        } else {
            succeeded = JSONCoding<T>::decode(element, out.emplace_back(), error);
        }
        return succeeded || error.within(static_cast<qsizetype>(out.size()) - 1);
    });
    return succeeded;
}

template <typename T, typename List>
void encodeList(const List& list, JSONWriter& writer)
{
    if (!writer.beginArray())
        return;
    for (const T& element : list)
        JSONCoding<T>::encode(element, writer);
    writer.endArray();
}

} // namespace json

template <typename T>
struct JSONCoding<std::vector<T>> {
    static bool decode(JSONValue value, std::vector<T>& out, DecodingError& error)
    {
        return json::decodeList<T>(value, out, error);
    }
    static void encode(const std::vector<T>& list, JSONWriter& writer) { json::encodeList<T>(list, writer); }
};

/// `QList<QString>` is `QStringList`.
template <typename T>
struct JSONCoding<QList<T>> {
    static bool decode(JSONValue value, QList<T>& out, DecodingError& error)
    {
        return json::decodeList<T>(value, out, error);
    }
    static void encode(const QList<T>& list, JSONWriter& writer) { json::encodeList<T>(list, writer); }
};

template <typename T>
struct JSONCoding<QHash<QString, T>> {
    static bool decode(JSONValue value, QHash<QString, T>& out, DecodingError& error)
    {
        if (!value.isObject())
            return json::mismatch(error, json::objectName, value);
        out.clear();
        out.reserve(std::min(value.count(), json::mostReserved));
        QSet<QString> failed; // until a later member of the same name, which replaces it
        value.forEachMember([&](std::string_view name, JSONValue member) {
            const QString key = textFromUtf8(name);
            T element{};
            if (!JSONCoding<T>::decode(member, element, error)) {
                error.within(key);
                failed.insert(key);
                return true;
            }
            if (!failed.isEmpty())
                failed.remove(key);
            out.emplace(key, std::move(element));
            return true;
        });
        return failed.isEmpty();
    }
    static void encode(const QHash<QString, T>& members, JSONWriter& writer)
    {
        if (!writer.beginObject())
            return;
        for (auto member = members.cbegin(); member != members.cend(); ++member) {
            writer.key(member.key());
            JSONCoding<T>::encode(member.value(), writer);
        }
        writer.endObject();
    }
};

} // namespace quor::toolkit
