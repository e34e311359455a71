// SPDX-License-Identifier: MIT
#include "ToolKit/Data/JSON/JSONCoding.h"

#include "ToolKit/Data/JSON/JSONRecordCoding.h"

using namespace Qt::StringLiterals;

namespace quor::toolkit {

using Kind = DecodingError::Kind;

namespace json {

bool mismatch(DecodingError& error, QLatin1StringView expected, JSONValue found)
{
    return error.set(Kind::typeMismatch, u"Expected %1, but found %2."_s.arg(expected, found.kindName()));
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
bool assign(const std::optional<T>& found, T& out)
{
    if (found)
        out = *found;
    return found.has_value();
}

bool badNumber(DecodingError& error, QLatin1StringView expected, JSONValue found)
{
    if (!found.isNumber())
        return json::mismatch(error, expected, found);
    return error.set(
        Kind::dataCorrupted, u"The number %1 is not %2."_s.arg(found.toDouble().value_or(0)).arg(expected));
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

bool JSONCoding<std::uint64_t>::decode(JSONValue value, std::uint64_t& out, DecodingError& error)
{
    return assign(value.toUnsigned(), out) || badNumber(error, "an unsigned integer"_L1, value);
}

bool JSONCoding<std::int64_t>::decode(JSONValue value, std::int64_t& out, DecodingError& error)
{
    return assign(value.toSigned(), out) || badNumber(error, "an integer"_L1, value);
}

bool JSONCoding<QString>::decode(JSONValue value, QString& out, DecodingError& error)
{
    if (auto text = value.toText()) {
        out = std::move(*text);
        return true;
    }
    return json::mismatch(error, "a text"_L1, value);
}

} // namespace quor::toolkit
