// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Clock.h"
#include "ToolKit/CoreData/Model/AttributeType.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <variant>

namespace quor::toolkit {

/// The value of an attribute: empty, or one of the types of `AttributeType`, in that order. Only
/// `AttributeValue()` is empty; a `QString` or `QByteArray` without content is a value. A plain value; any
/// thread.
using AttributeValue
    = std::variant<std::monostate, bool, qint64, double, QString, QByteArray, platform::Date>;

[[nodiscard]] inline bool isEmpty(const AttributeValue& value)
{
    return value.index() == 0;
}

/// Whether `value` is of this type; false for an empty one.
[[nodiscard]] inline bool isOfType(const AttributeValue& value, AttributeType type)
{
    return value.index() == static_cast<std::size_t>(type) + 1;
}

/// Returns false for NaN and for text with half a surrogate pair, which a store refuses.
[[nodiscard]] bool isStorable(const AttributeValue& value);

/// Converts the value to the type of an attribute. Integers become reals; booleans and the integers 0 and 1
/// become each other; empty stays empty. Returns `nullopt` if the value has any other type or is not
/// storable.
[[nodiscard]] std::optional<AttributeValue> converted(const AttributeValue& value, AttributeType type);

} // namespace quor::toolkit
