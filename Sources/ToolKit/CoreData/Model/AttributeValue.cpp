// SPDX-License-Identifier: MIT
#include "ToolKit/CoreData/Model/AttributeValue.h"

#include <cmath>

namespace quor::toolkit {

bool isStorable(const AttributeValue& value)
{
    if (const auto* text = std::get_if<QString>(&value))
        return QStringView(*text).isValidUtf16();
    if (const auto* real = std::get_if<double>(&value))
        return !std::isnan(*real);
    if (const auto* date = std::get_if<platform::Date>(&value))
        return !std::isnan(platform::secondsSince1970(*date));
    return true;
}

std::optional<AttributeValue> converted(const AttributeValue& value, AttributeType type)
{
    if (!isStorable(value))
        return std::nullopt;
    if (isEmpty(value) || isOfType(value, type))
        return value;
    const auto* integer = std::get_if<qint64>(&value);
    if (integer && type == AttributeType::real)
        return std::make_optional<AttributeValue>(static_cast<double>(*integer));
    if (integer && type == AttributeType::boolean && (*integer == 0 || *integer == 1))
        return std::make_optional<AttributeValue>(*integer == 1);
    if (const auto* boolean = std::get_if<bool>(&value); boolean && type == AttributeType::integer)
        return std::make_optional<AttributeValue>(qint64{*boolean ? 1 : 0});
    return std::nullopt;
}

} // namespace quor::toolkit
