// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/CoreData/Model/AttributeValue.h"

#include <QStringList>

#include <concepts>
#include <utility>
#include <vector>

namespace quor::toolkit {

/// The argument for a placeholder in a predicate's format: a value, or a list of values. A plain value; any
/// thread.
class PredicateArgument final {
public:
    /// An empty value.
    PredicateArgument()
        : values_(1)
    {
    }
    template <std::convertible_to<AttributeValue> Value>
    requires(!std::same_as<Value, const char*>) PredicateArgument(Value value)
        : values_{AttributeValue(std::move(value))}
    {
    }
    PredicateArgument(std::vector<AttributeValue> list)
        : values_(std::move(list))
        , isList_(true)
    {
    }
    PredicateArgument(const QStringList& list)
        : values_(list.begin(), list.end())
        , isList_(true)
    {
    }

    [[nodiscard]] bool isList() const { return isList_; }
    /// The values of the list; for a single value, a list of this value.
    [[nodiscard]] const std::vector<AttributeValue>& list() const { return values_; }
    /// Must not be called for a list.
    [[nodiscard]] const AttributeValue& value() const { return values_.front(); }

private:
    std::vector<AttributeValue> values_;
    bool isList_ = false;
};

} // namespace quor::toolkit
