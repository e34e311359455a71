// SPDX-License-Identifier: MIT
#include "ToolKit/Data/JSON/JSONCoding.h"

#include <QJsonArray>

#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

// Recursion goes no deeper than maximumJSONDepth: the parser and the writer both see to that.
namespace quor::toolkit {

namespace {

QJsonValue converted(JSONValue value);

QJsonArray convertedArray(JSONValue value)
{
    QJsonArray array;
    value.forEachElement([&](JSONValue element) {
        array.append(converted(element));
        return true;
    });
    return array;
}

// A QJsonObject keeps its members sorted: inserting them in order makes each insertion an append.
QJsonObject convertedObject(JSONValue value)
{
    std::vector<std::pair<QString, JSONValue>> members;
    members.reserve(value.count());
    value.forEachMember([&](std::string_view name, JSONValue member) {
        members.emplace_back(textFromUtf8(name), member);
        return true;
    });
    std::stable_sort(
        members.begin(), members.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    QJsonObject object;
    for (const auto& [name, member] : members)
        object.insert(name, converted(member));
    return object;
}

QJsonValue converted(JSONValue value)
{
    if (value.isObject())
        return convertedObject(value);
    if (value.isArray())
        return convertedArray(value);
    if (const auto text = value.toText())
        return *text;
    if (const auto boolean = value.toBool())
        return *boolean;
    if (const auto integer = value.toSigned())
        return qint64(*integer);
    if (const auto number = value.toDouble())
        return *number;
    return QJsonValue::Null;
}

void encodeNumber(const QJsonValue& value, JSONWriter& writer)
{
    // Integers may have more digits than a double; zero has a sign only as a double.
    const double number = value.toDouble();
    const qint64 integer = std::isfinite(number) ? value.toInteger() : 0;
    if (integer != 0)
        writer.number(std::int64_t(integer));
    else
        writer.number(number);
}

void encodeArray(const QJsonArray& array, JSONWriter& writer)
{
    if (!writer.beginArray())
        return;
    for (const auto& element : array)
        JSONCoding<QJsonValue>::encode(element, writer);
    writer.endArray();
}

} // namespace

bool JSONCoding<QJsonValue>::decode(JSONValue value, QJsonValue& out, DecodingError&)
{
    out = converted(value);
    return true;
}

bool JSONCoding<QJsonObject>::decode(JSONValue value, QJsonObject& out, DecodingError& error)
{
    if (!value.isObject())
        return json::mismatch(error, json::objectName, value);
    out = convertedObject(value);
    return true;
}

void JSONCoding<QJsonValue>::encode(const QJsonValue& value, JSONWriter& writer)
{
    switch (value.type()) {
    case QJsonValue::Bool:
        return writer.boolean(value.toBool());
    case QJsonValue::Double:
        return encodeNumber(value, writer);
    case QJsonValue::String:
        return writer.text(value.toString());
    case QJsonValue::Array:
        return encodeArray(value.toArray(), writer);
    case QJsonValue::Object:
        return JSONCoding<QJsonObject>::encode(value.toObject(), writer);
    case QJsonValue::Null:
    case QJsonValue::Undefined:
        return writer.null();
    }
}

void JSONCoding<QJsonObject>::encode(const QJsonObject& object, JSONWriter& writer)
{
    if (!writer.beginObject())
        return;
    for (auto member = object.begin(); member != object.end(); ++member) {
        writer.key(member.key());
        JSONCoding<QJsonValue>::encode(member.value(), writer);
    }
    writer.endObject();
}

} // namespace quor::toolkit
