// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Data/JSON/JSONCoding.h"
#include "ToolKit/Data/JSON/JSONFields.h"

#include <algorithm>
#include <array>
#include <optional>
#include <tuple>
#include <utility>
#include <variant>

/// The coding of records and tagged unions, by their `JSONFields` or `JSONCases`. One pass over the members
/// of an object finds the members of the type; then they are decoded in the type's own order.
namespace quor::toolkit {

namespace json {

bool missingKey(DecodingError& error, const QString& key);
bool wrongNumberOfCases(DecodingError& error);

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
            return missingKey(error, textFromUtf8(name));
    return JSONCoding<T>::decode(value, out, error) || error.within(textFromUtf8(name));
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
            || error.within(textFromUtf8(unionCase.name));
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

} // namespace quor::toolkit
