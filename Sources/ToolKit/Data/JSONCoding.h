// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Data/DecodingError.h"
#include "ToolKit/Data/JSONFields.h"
#include "ToolKit/Data/JSONValue.h"
#include "ToolKit/Data/JSONWriter.h"

#include <QHash>
#include <QJsonObject>
#include <QJsonValue>
#include <QSet>
#include <QString>

#include <algorithm>
#include <array>
#include <concepts>
#include <optional>
#include <tuple>
#include <utility>
#include <variant>
#include <vector>

/// How one type is read from JSON and written to it. There is a coding for booleans, numbers, texts,
/// optionals, lists, string-keyed hashes, Qt's JSON values, and for all types with `JSONFields` or
/// `JSONCases`; specialise it for a type whose form these cannot tell.
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

/// Any JSON value. Integers up to 64 bits keep their exact value. Undefined is written as null.
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
bool missingKey(DecodingError& error, QUtf8StringView key);
bool wrongNumberOfCases(DecodingError& error);

inline constexpr QLatin1StringView objectName("an object");
inline constexpr QLatin1StringView arrayName("an array");

/// Memory for so many elements may be taken at once on the mere word of a text.
inline constexpr std::uint32_t trustedCount = 4096;

inline QUtf8StringView utf8(std::string_view name)
{
    return {name.data(), static_cast<qsizetype>(name.size())};
}

template <typename T>
inline constexpr bool isOptional = false;
template <typename T>
inline constexpr bool isOptional<std::optional<T>> = true;

template <typename Tuple>
constexpr auto names(const Tuple& named)
{
    return std::apply(
        [](const auto&... each) { return std::array<std::string_view, sizeof...(each)>{each.name...}; },
        named);
}

template <typename T>
bool decodeMember(std::string_view name, JSONValue value, T& out, DecodingError& error)
{
    if constexpr (!isOptional<T>)
        if (value.isAbsent())
            return missingKey(error, utf8(name));
    return JSONCoding<T>::decode(value, out, error) || error.within(utf8(name));
}

template <typename Record, typename... Fields>
bool decodeFields(JSONValue value, Record& out, const std::tuple<Fields...>& fields, DecodingError& error)
{
    if (!value.isObject())
        return mismatch(error, objectName, value);
    std::array<JSONValue, sizeof...(Fields)> found;
    value.members(names(fields), found);
    return [&]<std::size_t... index>(std::index_sequence<index...>)
    {
        return (
            decodeMember(std::get<index>(fields).name, found[index], std::get<index>(fields).of(out), error)
            && ...);
    }
    (std::index_sequence_for<Fields...>());
}

template <typename Record, typename Field>
void encodeMember(const Record& record, const Field& field, JSONWriter& writer)
{
    const auto& value = field.of(record);
    using Value = std::remove_cvref_t<decltype(value)>;
    if constexpr (isOptional<Value>)
        if (!value)
            return;
    writer.key(field.name);
    JSONCoding<Value>::encode(value, writer);
}

template <typename Record, typename... Fields>
void encodeFields(const Record& record, const std::tuple<Fields...>& fields, JSONWriter& writer)
{
    if (!writer.beginObject())
        return;
    std::apply([&](const auto&... field) { (encodeMember(record, field, writer), ...); }, fields);
    writer.endObject();
}

} // namespace json

template <JSONRecord Record>
struct JSONCoding<Record> {
    static bool decode(JSONValue value, Record& out, DecodingError& error)
    {
        return json::decodeFields(value, out, JSONFields<Record>::fields, error);
    }
    static void encode(const Record& record, JSONWriter& writer)
    {
        json::encodeFields(record, JSONFields<Record>::fields, writer);
    }
};

template <JSONUnion Union>
struct JSONCoding<Union> {
    static bool decode(JSONValue value, Union& out, DecodingError& error)
    {
        if (!value.isObject())
            return json::mismatch(error, json::objectName, value);
        std::array<JSONValue, count> found;
        value.members(json::names(cases), found);
        if (std::count_if(found.begin(), found.end(), [](JSONValue each) { return !each.isAbsent(); }) != 1)
            return json::wrongNumberOfCases(error);
        return [&]<std::size_t... index>(std::index_sequence<index...>)
        {
            return ((found[index].isAbsent() || decodeCase<index>(found[index], out, error)) && ...);
        }
        (std::make_index_sequence<count>());
    }

    static void encode(const Union& object, JSONWriter& writer)
    {
        if (!writer.beginObject())
            return;
        [&]<std::size_t... index>(std::index_sequence<index...>)
        {
            (encodeCase<index>(object, writer), ...);
        }
        (std::make_index_sequence<count>());
        writer.endObject();
    }

private:
    static constexpr auto cases = JSONCases<Union>::cases;
    static constexpr auto variant = JSONCases<Union>::value;
    using Variant = std::remove_cvref_t<decltype(std::declval<Union&>().*variant)>;
    static constexpr std::size_t count = std::variant_size_v<Variant>;
    static_assert(
        count == std::tuple_size_v<decltype(JSONCases<Union>::cases)>, "one case for each alternative");

    template <std::size_t index>
    static bool decodeCase(JSONValue value, Union& out, DecodingError& error)
    {
        const auto& unionCase = std::get<index>(cases);
        auto& payload = (out.*variant).template emplace<index>();
        return json::decodeFields(value, payload, unionCase.fields, error)
            || error.within(json::utf8(unionCase.name));
    }

    template <std::size_t index>
    static void encodeCase(const Union& object, JSONWriter& writer)
    {
        if (const auto* payload = std::get_if<index>(&(object.*variant))) {
            writer.key(std::get<index>(cases).name);
            json::encodeFields(*payload, std::get<index>(cases).fields, writer);
        }
    }
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
            const QString key = json::utf8(name).toString();
            T element{};
            if (!JSONCoding<T>::decode(member, element, error)) {
                error.within(json::utf8(name));
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
