// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/Engine/ScriptBridge.h"

#include "ToolKit/Data/JSON/JSONValue.h"

#include <memory>
#include <type_traits>

namespace quor::toolkit::script {

using namespace Qt::StringLiterals;

namespace {

// The object has no prototype while its members are set. Otherwise a setter of the prototype would be called
// instead: one that the script has put into `Object.prototype`, or the engine's own for `__proto__`.
JSValueRef fromMap(JSContextRef context, const ScriptValue::Map& map, const MakeFunction& makeFunction)
{
    JSObjectRef object = JSObjectMake(context, nullptr, nullptr);
    JSValueRef prototype = JSObjectGetPrototype(context, object);
    JSObjectSetPrototype(context, object, JSValueMakeNull(context));
    for (const auto& [name, member] : map)
        setMember(context, object, name, fromScriptValue(context, member, makeFunction));
    JSObjectSetPrototype(context, object, prototype);
    return object;
}

} // namespace

QString Text::toQString() const
{
    if (!text_)
        return {};
    return QString(reinterpret_cast<const QChar*>(JSStringGetCharactersPtr(text_)),
        static_cast<qsizetype>(JSStringGetLength(text_)));
}

JSValueRef makeText(JSContextRef context, const QString& text)
{
    return JSValueMakeString(context, Text(text).get());
}

JSValueRef fromScriptValue(JSContextRef context, const ScriptValue& value, const MakeFunction& makeFunction)
{
    return std::visit(
        [&](const auto& within) -> JSValueRef {
            using T = std::decay_t<decltype(within)>;
            if constexpr (std::is_same_v<T, std::nullptr_t>) {
                return JSValueMakeNull(context);
            } else if constexpr (std::is_same_v<T, bool>) {
                return JSValueMakeBoolean(context, within);
            } else if constexpr (std::is_same_v<T, double>) {
                return JSValueMakeNumber(context, within);
            } else if constexpr (std::is_same_v<T, QString>) {
                return makeText(context, within);
            } else if constexpr (std::is_same_v<T, ScriptValue::List>) {
                JSObjectRef array = JSObjectMakeArray(context, 0, nullptr, nullptr);
                unsigned index = 0;
                for (const ScriptValue& element : within)
                    JSObjectSetPropertyAtIndex(
                        context, array, index++, fromScriptValue(context, element, makeFunction), nullptr);
                return array;
            } else if constexpr (std::is_same_v<T, ScriptValue::Map>) {
                return fromMap(context, within, makeFunction);
            } else if constexpr (std::is_same_v<T, ScriptValue::Function>) {
                return within ? makeFunction(within) : JSValueMakeUndefined(context);
            } else {
                return JSValueMakeUndefined(context);
            }
        },
        value.value);
}

bool Conversion::takeLength(double length)
{
    isTooLong_ = isTooLong_ || length > static_cast<double>(lengthLeft_);
    if (!isTooLong_)
        lengthLeft_ -= static_cast<qsizetype>(length);
    return !isTooLong_;
}

std::optional<QString> Conversion::text(JSValueRef value)
{
    // The engine knows the length of a text that it has not put together yet, and copying takes several times
    // the memory of the text.
    if (JSValueIsString(context_, value)) {
        JSObjectRef object = JSValueToObject(context_, value, nullptr);
        JSValueRef length
            = object ? JSObjectGetProperty(context_, object, Text(u"length"_s).get(), nullptr) : nullptr;
        if (length && JSValueToNumber(context_, length, nullptr) > static_cast<double>(lengthLeft_)) {
            isTooLong_ = true;
            return std::nullopt;
        }
    }
    JSValueRef exception = nullptr;
    const Text text(JSValueToStringCopy(context_, value, &exception));
    if (!text.get() || exception || !takeLength(static_cast<double>(JSStringGetLength(text.get()))))
        return std::nullopt;
    return text.toQString();
}

// Cycles exceed the limit of the depth. Lists that contain the same list many times exceed the limit of the
// number of values.
std::optional<ScriptValue> Conversion::value(JSValueRef value)
{
    if (!value || valuesLeft_-- <= 0)
        return std::nullopt;
    switch (JSValueGetType(context_, value)) {
    case kJSTypeNull:
        return ScriptValue(nullptr);
    case kJSTypeBoolean:
        return ScriptValue(JSValueToBoolean(context_, value));
    case kJSTypeNumber:
        return ScriptValue(JSValueToNumber(context_, value, nullptr));
    case kJSTypeString: {
        auto converted = text(value);
        return converted ? std::optional(ScriptValue(*std::move(converted))) : std::nullopt;
    }
    case kJSTypeObject:
        return object(value);
    default:
        return ScriptValue();
    }
}

std::optional<ScriptValue::Map> Conversion::members(JSValueRef value)
{
    JSObjectRef object
        = JSValueIsObject(context_, value) ? JSValueToObject(context_, value, nullptr) : nullptr;
    if (!object)
        return std::nullopt;
    const std::unique_ptr<OpaqueJSPropertyNameArray, decltype(&JSPropertyNameArrayRelease)> names(
        JSObjectCopyPropertyNames(context_, object), JSPropertyNameArrayRelease);
    ScriptValue::Map map;
    for (size_t i = 0; i < JSPropertyNameArrayGetCount(names.get()); ++i) {
        JSStringRef name = JSPropertyNameArrayGetNameAtIndex(names.get(), i);
        if (!takeLength(static_cast<double>(JSStringGetLength(name))))
            return std::nullopt;
        JSValueRef exception = nullptr;
        JSValueRef member = JSObjectGetProperty(context_, object, name, &exception);
        auto converted = exception ? std::nullopt : this->value(member);
        if (!converted)
            return std::nullopt;
        map.insert_or_assign(Text(JSStringRetain(name)).toQString(), *std::move(converted));
    }
    return map;
}

std::optional<ScriptValue> Conversion::object(JSValueRef value)
{
    JSObjectRef object = JSValueToObject(context_, value, nullptr);
    if (!object || JSObjectIsFunction(context_, object))
        return ScriptValue();
    if (JSValueIsDate(context_, value))
        return date(value);
    if (depth_ == maximumJSONDepth)
        return std::nullopt;
    ++depth_;
    std::optional<ScriptValue> converted;
    if (JSValueIsArray(context_, value)) {
        converted = elements(object);
    } else if (auto map = members(value)) {
        converted = ScriptValue(*std::move(map));
    }
    --depth_;
    return converted;
}

std::optional<ScriptValue> Conversion::elements(JSObjectRef array)
{
    JSValueRef exception = nullptr;
    JSValueRef lengthValue = JSObjectGetProperty(context_, array, Text(u"length"_s).get(), &exception);
    const double count = exception ? -1 : JSValueToNumber(context_, lengthValue, &exception);
    if (exception || !(count >= 0 && count <= valuesLeft_))
        return std::nullopt;
    ScriptValue::List list;
    for (unsigned i = 0; i < static_cast<unsigned>(count); ++i) {
        JSValueRef element = JSObjectGetPropertyAtIndex(context_, array, i, &exception);
        auto converted = exception ? std::nullopt : value(element);
        if (!converted)
            return std::nullopt;
        list.push_back(*std::move(converted));
    }
    return ScriptValue(std::move(list));
}

// The JSON text of a date is its ISO 8601 text in quotes, or null for an invalid date.
std::optional<ScriptValue> Conversion::date(JSValueRef value)
{
    JSValueRef exception = nullptr;
    const Text json(JSValueCreateJSONString(context_, value, 0, &exception));
    if (!json.get())
        return exception ? std::nullopt : std::optional(ScriptValue());
    if (!takeLength(static_cast<double>(JSStringGetLength(json.get()))))
        return std::nullopt;
    QString text = json.toQString();
    if (text == "null"_L1)
        return ScriptValue(nullptr);
    return ScriptValue(text.remove(u'"'));
}

void setMember(JSContextRef context, JSObjectRef object, const QString& name, JSValueRef value)
{
    JSValueRef refused = nullptr; // read-only members, such as `undefined`, stay unchanged
    JSObjectSetProperty(context, object, Text(name).get(), value, kJSPropertyAttributeNone, &refused);
}

} // namespace quor::toolkit::script
