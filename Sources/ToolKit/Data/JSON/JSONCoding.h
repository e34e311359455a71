// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Data/JSON/DecodingError.h"
#include "ToolKit/Data/JSON/JSONValue.h"
#include "ToolKit/Data/JSON/JSONWriter.h"

#include <QHash>
#include <QJsonObject>
#include <QJsonValue>
#include <QSet>
#include <QString>

#include <algorithm>
#include <optional>
#include <utility>
#include <vector>

/// How one type is read from JSON and written to it. There is a coding for booleans, numbers, texts,
/// optionals, lists, string-keyed hashes, Qt's JSON values, and (in JSONRecordCoding.h) for all types
/// with `JSONFields` or `JSONCases`; specialise it for a type whose form these cannot tell.
///
/// `decode` replaces `out` and returns true, or returns false with the failure in `error` and `out` in
/// any state; it meets null and, for optionals, an absent value too. `encode` writes exactly one value.
namespace quor::toolkit {

template <typename T>
struct JSONCoding;

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

template <>
struct JSONCoding<std::uint64_t> {
    static bool decode(JSONValue value, std::uint64_t& out, DecodingError& error);
    static void encode(std::uint64_t value, JSONWriter& writer) { writer.number(value); }
};

template <>
struct JSONCoding<std::int64_t> {
    static bool decode(JSONValue value, std::int64_t& out, DecodingError& error);
    static void encode(std::int64_t value, JSONWriter& writer) { writer.number(value); }
};

template <>
struct JSONCoding<QString> {
    static bool decode(JSONValue value, QString& out, DecodingError& error);
    static void encode(const QString& value, JSONWriter& writer) { writer.text(value); }
};

/// Any JSON value. Integers of 64 bits with a sign keep their exact value. Undefined is written as null.
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

namespace json {

/// Sets a mismatch between what was expected ("a text") and what is there. Returns false.
bool mismatch(DecodingError& error, QLatin1StringView expected, JSONValue found);

inline constexpr QLatin1StringView objectName("an object");
inline constexpr QLatin1StringView arrayName("an array");

/// Memory for so many elements may be taken at once on the mere word of a text.
inline constexpr std::uint32_t trustedCount = 4096;

} // namespace json

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

template <typename T>
struct JSONCoding<std::vector<T>> {
    static bool decode(JSONValue value, std::vector<T>& out, DecodingError& error)
    {
        if (!value.isArray())
            return json::mismatch(error, json::arrayName, value);
        out.clear();
        out.reserve(std::min(value.count(), json::trustedCount));
        bool succeeded = true;
        value.forEachElement([&](JSONValue element) {
            succeeded = JSONCoding<T>::decode(element, out.emplace_back(), error)
                || error.within(static_cast<qsizetype>(out.size()) - 1);
            return succeeded;
        });
        return succeeded;
    }
    static void encode(const std::vector<T>& list, JSONWriter& writer)
    {
        if (!writer.beginArray())
            return;
        for (const T& element : list)
            JSONCoding<T>::encode(element, writer);
        writer.endArray();
    }
};

template <typename T>
struct JSONCoding<QHash<QString, T>> {
    static bool decode(JSONValue value, QHash<QString, T>& out, DecodingError& error)
    {
        if (!value.isObject())
            return json::mismatch(error, json::objectName, value);
        out.clear();
        out.reserve(std::min(value.count(), json::trustedCount));
        QSet<QString> failed; // a later member of that name may make it good
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
