// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Clock.h"
#include "ToolKit/CoreData/Model/AttributeType.h"

#include <QByteArray>
#include <QString>

#include <optional>
#include <variant>

namespace quor::toolkit {

/// The value of an attribute: empty, or one of the types of `AttributeType`, in that order. A null
/// `QString` or `QByteArray` is a value, of no length; only `AttributeValue()` is empty. A value; any
/// thread.
using AttributeValue
    = std::variant<std::monostate, bool, qint64, double, QString, QByteArray, platform::Date>;

[[nodiscard]] inline bool isEmpty(const AttributeValue& value)
{
    return value.index() == 0;
}

/// Not so NaN, and text with half a surrogate pair.
[[nodiscard]] bool isStorable(const AttributeValue& value);

/// The value as an attribute of this type holds it. Integers turn into reals, and booleans and integers
/// into each other where nothing is lost (0 and 1); empty stays empty. Nothing for every other type, and
/// for what is not storable.
[[nodiscard]] std::optional<AttributeValue> converted(const AttributeValue& value, AttributeType type);

} // namespace quor::toolkit
