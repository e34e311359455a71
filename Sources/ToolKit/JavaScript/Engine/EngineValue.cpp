// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/Engine/EngineValue.h"

#include "ToolKit/JavaScript/Engine/ScriptBridge.h"

#include <limits>
#include <utility>

namespace quor::toolkit {

using namespace Qt::StringLiterals;

EngineValue::EngineValue(std::shared_ptr<ScriptEngine> engine, JSValueRef value)
    : engine_(std::move(engine))
    , value_(value)
{
    JSValueProtect(context(), value_);
}

EngineValue::~EngineValue()
{
    JSValueUnprotect(context(), value_);
}

ValueReference::Kind EngineValue::kind() const
{
    switch (JSValueGetType(context(), value_)) {
    case kJSTypeUndefined:
        return Kind::undefined;
    case kJSTypeNull:
        return Kind::null;
    case kJSTypeBoolean:
        return Kind::boolean;
    case kJSTypeNumber:
        return Kind::number;
    case kJSTypeString:
        return Kind::text;
    case kJSTypeObject:
        return JSValueIsArray(context(), value_) ? Kind::array : Kind::object;
    default: // symbols, and types of newer versions of the library
        return Kind::other;
    }
}

bool EngineValue::toBool() const
{
    return JSValueToBoolean(context(), value_);
}

double EngineValue::toDouble() const
{
    JSValueRef exception = nullptr;
    const double number = JSValueToNumber(context(), value_, &exception);
    return exception ? std::numeric_limits<double>::quiet_NaN() : number;
}

std::optional<QString> EngineValue::toString() const
{
    script::Conversion conversion(context());
    std::optional<QString> text;
    if (JSValueIsSymbol(context(), value_)) { // the engine refuses to convert it
        JSObjectRef symbol = JSValueToObject(context(), value_, nullptr);
        JSValueRef name
            = JSObjectGetProperty(context(), symbol, script::Text(u"description"_s).get(), nullptr);
        const bool isNamed = name && JSValueIsString(context(), name);
        text = isNamed ? conversion.text(name) : QString();
        if (text)
            text = u"Symbol("_s + *text + u')';
    } else {
        text = conversion.text(value_);
    }
    if (conversion.isTooLong())
        engine_->reportTooLong();
    return text;
}

std::optional<ScriptValue::Map> EngineValue::toDictionary() const
{
    script::Conversion conversion(context());
    auto map = conversion.members(value_);
    if (conversion.isTooLong())
        engine_->reportTooLong();
    return map;
}

std::optional<ScriptValue> EngineValue::toScriptValue(int maximumCount) const
{
    script::Conversion conversion(context(), maximumCount);
    auto value = conversion.value(value_);
    if (conversion.isTooLong())
        engine_->reportTooLong();
    return value;
}

std::optional<JSValue> EngineValue::property(const QString& name) const
{
    JSValueRef exception = nullptr;
    JSObjectRef object = JSValueToObject(context(), value_, nullptr);
    JSValueRef member = JSObjectGetProperty(context(), object, script::Text(name).get(), &exception);
    if (exception || !member || JSValueIsUndefined(context(), member))
        return std::nullopt;
    return engine_->handle(member);
}

std::optional<JSValue> EngineValue::call(const ScriptValue::List& arguments) const
{
    return engine_->call(value_, arguments);
}

} // namespace quor::toolkit
