// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/JSValue.h"

#include "ToolKit/JavaScript/ValueReference.h"

#include <limits>
#include <utility>

namespace quor::toolkit {

using namespace Qt::StringLiterals;
using Kind = ValueReference::Kind;

JSValue::JSValue(std::shared_ptr<const ValueReference> reference)
    : reference_(std::move(reference))
{
}

bool JSValue::isUndefined() const
{
    return reference_->kind() == Kind::undefined;
}
bool JSValue::isNull() const
{
    return reference_->kind() == Kind::null;
}
bool JSValue::isBoolean() const
{
    return reference_->kind() == Kind::boolean;
}
bool JSValue::isNumber() const
{
    return reference_->kind() == Kind::number;
}
bool JSValue::isString() const
{
    return reference_->kind() == Kind::text;
}
bool JSValue::isArray() const
{
    return reference_->kind() == Kind::array;
}
bool JSValue::isObject() const
{
    return isArray() || reference_->kind() == Kind::object;
}

bool JSValue::toBool() const
{
    return reference_->toBool();
}

double JSValue::toDouble() const
{
    return reference_->toDouble();
}

std::optional<QString> JSValue::toString() const
{
    return reference_->toString();
}

std::optional<ScriptValue::List> JSValue::toArray() const
{
    auto value = isArray() ? toScriptValue() : std::nullopt;
    auto* list = value ? std::get_if<ScriptValue::List>(&value->value) : nullptr;
    return list ? std::optional(std::move(*list)) : std::nullopt;
}

std::optional<ScriptValue::Map> JSValue::toDictionary() const
{
    return isObject() ? reference_->toDictionary() : std::nullopt;
}

std::optional<ScriptValue> JSValue::toScriptValue(int maximumCount) const
{
    return reference_->toScriptValue(maximumCount);
}

std::optional<JSValue> JSValue::property(const QString& name) const
{
    return isObject() ? reference_->property(name) : std::nullopt;
}

std::optional<JSValue> JSValue::call(const ScriptValue::List& arguments) const
{
    const auto function = reference_; // the called function can cause the destruction of this object
    return function->kind() == Kind::object ? function->call(arguments) : std::nullopt;
}

std::optional<int> JSValue::line() const
{
    return position(u"line"_s);
}

std::optional<int> JSValue::column() const
{
    return position(u"column"_s);
}

std::optional<int> JSValue::position(const QString& name) const
{
    const auto member = property(name);
    if (!member || !member->isNumber())
        return std::nullopt;
    const double number = member->toDouble();
    constexpr double largest = std::numeric_limits<int>::max();
    return number >= 1 && number <= largest ? std::optional(static_cast<int>(number)) : std::nullopt;
}

} // namespace quor::toolkit
