// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/JSValue.h"

#include "ToolKit/JavaScript/ScriptBridge.h"
#include "ToolKit/JavaScript/ScriptEngine.h"

#include <limits>
#include <utility>

namespace quor::toolkit {

using namespace Qt::StringLiterals;

JSValue::JSValue(std::shared_ptr<ScriptEngine> engine, const OpaqueJSValue* value)
    : engine_(std::move(engine))
    , value_(value)
{
    JSValueProtect(engine_->context(), value_);
}

JSValue::JSValue(const JSValue& other)
    : JSValue(other.engine_, other.value_)
{
}

JSValue::JSValue(JSValue&& other) noexcept
    : engine_(std::move(other.engine_))
    , value_(std::exchange(other.value_, nullptr))
{
}

JSValue& JSValue::operator=(JSValue other) noexcept
{
    std::swap(engine_, other.engine_);
    std::swap(value_, other.value_);
    return *this;
}

JSValue::~JSValue()
{
    if (value_)
        JSValueUnprotect(engine_->context(), value_);
}

bool JSValue::isUndefined() const
{
    return JSValueIsUndefined(engine_->context(), value_);
}
bool JSValue::isNull() const
{
    return JSValueIsNull(engine_->context(), value_);
}
bool JSValue::isBoolean() const
{
    return JSValueIsBoolean(engine_->context(), value_);
}
bool JSValue::isNumber() const
{
    return JSValueIsNumber(engine_->context(), value_);
}
bool JSValue::isString() const
{
    return JSValueIsString(engine_->context(), value_);
}
bool JSValue::isArray() const
{
    return JSValueIsArray(engine_->context(), value_);
}
bool JSValue::isObject() const
{
    return JSValueIsObject(engine_->context(), value_);
}

bool JSValue::toBool() const
{
    return JSValueToBoolean(engine_->context(), value_);
}

double JSValue::toDouble() const
{
    const ScriptWatch::Run run(engine_->watch());
    JSValueRef exception = nullptr;
    const double number = JSValueToNumber(engine_->context(), value_, &exception);
    return exception ? std::numeric_limits<double>::quiet_NaN() : number;
}

std::optional<QString> JSValue::toString() const
{
    const ScriptWatch::Run run(engine_->watch());
    if (JSValueIsSymbol(engine_->context(), value_)) { // the engine refuses to convert it
        JSObjectRef symbol = JSValueToObject(engine_->context(), value_, nullptr);
        JSValueRef name
            = JSObjectGetProperty(engine_->context(), symbol, script::Text(u"description"_s).get(), nullptr);
        const bool isNamed = name && JSValueIsString(engine_->context(), name);
        return u"Symbol("_s + (isNamed ? script::toText(engine_->context(), name).value_or(QString()) : u""_s)
            + u')';
    }
    return script::toText(engine_->context(), value_);
}

std::optional<ScriptValue::List> JSValue::toArray() const
{
    auto value = isArray() ? toScriptValue() : std::nullopt;
    auto* list = value ? std::get_if<ScriptValue::List>(&value->value) : nullptr;
    return list ? std::optional(std::move(*list)) : std::nullopt;
}

std::optional<ScriptValue::Map> JSValue::toDictionary() const
{
    const ScriptWatch::Run run(engine_->watch());
    return script::toMap(engine_->context(), value_);
}

std::optional<ScriptValue> JSValue::toScriptValue(int maximumCount) const
{
    const ScriptWatch::Run run(engine_->watch());
    return script::toScriptValue(engine_->context(), value_, maximumCount);
}

std::optional<JSValue> JSValue::property(const QString& name) const
{
    if (!isObject())
        return std::nullopt;
    const ScriptWatch::Run run(engine_->watch());
    JSValueRef exception = nullptr;
    JSObjectRef object = JSValueToObject(engine_->context(), value_, nullptr);
    JSValueRef member = JSObjectGetProperty(engine_->context(), object, script::Text(name).get(), &exception);
    if (exception || !member || JSValueIsUndefined(engine_->context(), member))
        return std::nullopt;
    return JSValue(engine_, member);
}

std::optional<JSValue> JSValue::call(const ScriptValue::List& arguments) const
{
    const JSValue copy = *this; // the called function can cause the destruction of this object
    return copy.engine_->call(copy.value_, arguments);
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
