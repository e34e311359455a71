// SPDX-License-Identifier: MIT
#include "ToolKit/Data/JSON/JSONCoding.h"

#include "ToolKit/Data/Ciphers/Base64.h"
#include "ToolKit/Data/JSON/JSONRecordCoding.h"

#include <QJsonArray>
#include <QLocale>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

using Kind = DecodingError::Kind;

namespace json {

bool mismatch(DecodingError& error, QLatin1StringView expected, JSONValue found)
{
    return error.set(Kind::typeMismatch, u"Expected %1, but found %2."_s.arg(expected, found.kindName()));
}

bool unsuitableNumber(DecodingError& error, QLatin1StringView expected, JSONValue found)
{
    if (!found.isNumber())
        return mismatch(error, expected, found);
    const QString number = QString::number(*found.toDouble(), 'g', QLocale::FloatingPointShortest);
    return error.set(Kind::dataCorrupted, u"The number %1 is not %2."_s.arg(number, expected));
}

bool missingKey(DecodingError& error, const QString& key)
{
    return error.set(Kind::keyNotFound, u"There is no value for the key \"%1\"."_s.arg(key));
}

bool wrongNumberOfCases(DecodingError& error)
{
    return error.set(Kind::typeMismatch, u"Invalid number of keys found, expected one."_s);
}

} // namespace json

namespace {

template <typename T>
bool assign(std::optional<T>&& found, T& out)
{
    if (!found)
        return false;
    out = *std::move(found);
    return true;
}

// Recursion goes no deeper than maximumJSONDepth: the parser and the writer both ensure that.
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

bool JSONCoding<bool>::decode(JSONValue value, bool& out, DecodingError& error)
{
    return assign(value.toBool(), out) || json::mismatch(error, "true or false"_L1, value);
}

bool JSONCoding<double>::decode(JSONValue value, double& out, DecodingError& error)
{
    return assign(value.toDouble(), out) || json::mismatch(error, "a number"_L1, value);
}

bool JSONCoding<QString>::decode(JSONValue value, QString& out, DecodingError& error)
{
    return assign(value.toText(), out) || json::mismatch(error, "a text"_L1, value);
}

bool JSONCoding<QByteArray>::decode(JSONValue value, QByteArray& out, DecodingError& error)
{
    const auto text = value.toText();
    if (!text)
        return json::mismatch(error, "bytes in Base64"_L1, value);
    return assign(dataFromBase64(*text, Base64Decoding::strict), out)
        || error.set(Kind::dataCorrupted, u"The text is not valid Base64."_s);
}

void JSONCoding<QByteArray>::encode(const QByteArray& value, JSONWriter& writer)
{
    writer.text(base64EncodedString(value));
}

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
