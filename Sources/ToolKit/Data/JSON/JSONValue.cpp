// SPDX-License-Identifier: MIT
#include "ToolKit/Data/JSON/JSONValue.h"

#include <QStringDecoder>

#include <cmath>
#include <limits>

using namespace Qt::StringLiterals;

namespace quor::toolkit {

using Kind = JSONNode::Kind;

namespace {

// A double cannot hold the largest integer, but it can hold the power of two after it.
template <typename Integer>
std::optional<Integer> exactly(double number)
{
    const double end = std::ldexp(1.0, std::numeric_limits<Integer>::digits);
    const double begin = std::is_signed_v<Integer> ? -end : 0;
    if (number < begin || number >= end || number != std::trunc(number))
        return std::nullopt;
    return static_cast<Integer>(number);
}

} // namespace

QString textFromUtf8(std::string_view utf8)
{
    const QByteArrayView bytes(utf8.data(), static_cast<qsizetype>(utf8.size()));
    if (!bytes.startsWith("\xEF\xBB\xBF"))
        return QString::fromUtf8(bytes);
    using Flag = QStringDecoder::Flag;
    return QStringDecoder(QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom)(bytes);
}

bool JSONValue::isNumber() const
{
    return nodes_ && node().kind >= Kind::unsignedInteger && node().kind <= Kind::real;
}

QLatin1StringView JSONValue::kindName() const
{
    if (isAbsent())
        return "nothing"_L1;
    switch (node().kind) {
    case Kind::null:
        return "null"_L1;
    case Kind::boolean:
        return "true or false"_L1;
    case Kind::unsignedInteger:
    case Kind::negativeInteger:
    case Kind::real:
        return "a number"_L1;
    case Kind::text:
        return "a text"_L1;
    case Kind::array:
        return "an array"_L1;
    case Kind::object:
        return "an object"_L1;
    }
    Q_UNREACHABLE();
}

std::optional<bool> JSONValue::toBool() const
{
    if (isAbsent() || node().kind != Kind::boolean)
        return std::nullopt;
    return node().boolean;
}

std::optional<double> JSONValue::toDouble() const
{
    if (!isNumber())
        return std::nullopt;
    switch (node().kind) {
    case Kind::unsignedInteger:
        return static_cast<double>(node().unsignedInteger);
    case Kind::negativeInteger:
        return static_cast<double>(node().negativeInteger);
    default:
        return node().real;
    }
}

std::optional<std::uint64_t> JSONValue::toUnsigned() const
{
    if (!isNumber() || node().kind == Kind::negativeInteger)
        return std::nullopt;
    return node().kind == Kind::real ? exactly<std::uint64_t>(node().real) : node().unsignedInteger;
}

std::optional<std::int64_t> JSONValue::toSigned() const
{
    if (!isNumber())
        return std::nullopt;
    switch (node().kind) {
    case Kind::negativeInteger:
        return node().negativeInteger;
    case Kind::unsignedInteger:
        if (node().unsignedInteger > std::numeric_limits<std::int64_t>::max())
            return std::nullopt;
        return static_cast<std::int64_t>(node().unsignedInteger);
    default:
        return exactly<std::int64_t>(node().real);
    }
}

std::optional<QString> JSONValue::toText() const
{
    if (isAbsent() || node().kind != Kind::text)
        return std::nullopt;
    return textFromUtf8({node().text, node().count});
}

std::uint32_t JSONValue::count() const
{
    return isArray() || isObject() ? node().count : 0;
}

void JSONValue::members(std::span<const std::string_view> names, std::span<JSONValue> found) const
{
    // Most texts have the members in this order, so the name after the last one found is tried first.
    std::size_t expected = 0;
    forEachMember([&](std::string_view name, JSONValue value) {
        for (std::size_t tried = 0; tried < names.size(); ++tried) {
            const std::size_t index = (expected + tried) % names.size();
            if (names[index] == name) {
                found[index] = value;
                expected = index + 1;
                break;
            }
        }
        return true;
    });
}

} // namespace quor::toolkit
