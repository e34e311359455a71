// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/ScriptBridge.h"

#include "ToolKit/Data/JSON/JSONValue.h"

#include <memory>
#include <type_traits>

namespace quor::toolkit::script {

using namespace Qt::StringLiterals;

namespace {

/// One conversion from the engine. It fails at the first value that cannot be converted. Cycles exceed the
/// limit of the depth. Lists that contain the same list many times exceed the limit of the number of values.
class Conversion {
public:
    explicit Conversion(JSContextRef context, int maximumValues = ScriptValue::maximumCount)
        : context_(context)
        , maximumValues_(maximumValues)
    {
    }

    std::optional<ScriptValue> convert(JSValueRef value)
    {
        if (!value || ++values_ > maximumValues_)
            return std::nullopt;
        switch (JSValueGetType(context_, value)) {
        case kJSTypeNull:
            return ScriptValue(nullptr);
        case kJSTypeBoolean:
            return ScriptValue(JSValueToBoolean(context_, value));
        case kJSTypeNumber:
            return ScriptValue(JSValueToNumber(context_, value, nullptr));
        case kJSTypeString: {
            auto text = toText(context_, value);
            return text ? std::optional(ScriptValue(*std::move(text))) : std::nullopt;
        }
        case kJSTypeObject:
            return convertObject(value);
        default:
            return ScriptValue();
        }
    }

    std::optional<ScriptValue::Map> convertMembers(JSObjectRef object)
    {
        const std::unique_ptr<OpaqueJSPropertyNameArray, decltype(&JSPropertyNameArrayRelease)> names(
            JSObjectCopyPropertyNames(context_, object), JSPropertyNameArrayRelease);
        ScriptValue::Map map;
        for (size_t i = 0; i < JSPropertyNameArrayGetCount(names.get()); ++i) {
            JSStringRef name = JSPropertyNameArrayGetNameAtIndex(names.get(), i);
            auto member = convertMember(object, name);
            if (!member)
                return std::nullopt;
            map.insert_or_assign(Text(JSStringRetain(name)).toQString(), *std::move(member));
        }
        return map;
    }

private:
    std::optional<ScriptValue> convertObject(JSValueRef value)
    {
        JSObjectRef object = JSValueToObject(context_, value, nullptr);
        if (!object || JSObjectIsFunction(context_, object))
            return ScriptValue();
        if (JSValueIsDate(context_, value))
            return convertDate(value);
        if (depth_ == maximumJSONDepth)
            return std::nullopt;
        ++depth_;
        std::optional<ScriptValue> converted;
        if (JSValueIsArray(context_, value)) {
            converted = convertElements(object);
        } else if (auto members = convertMembers(object)) {
            converted = ScriptValue(*std::move(members));
        }
        --depth_;
        return converted;
    }

    std::optional<ScriptValue> convertElements(JSObjectRef array)
    {
        JSValueRef exception = nullptr;
        const Text length(u"length"_s);
        JSValueRef lengthValue = JSObjectGetProperty(context_, array, length.get(), &exception);
        const double count = exception ? -1 : JSValueToNumber(context_, lengthValue, &exception);
        if (exception || !(count >= 0 && count <= maximumValues_ - values_))
            return std::nullopt;
        ScriptValue::List list;
        for (unsigned i = 0; i < static_cast<unsigned>(count); ++i) {
            JSValueRef element = JSObjectGetPropertyAtIndex(context_, array, i, &exception);
            auto converted = exception ? std::nullopt : convert(element);
            if (!converted)
                return std::nullopt;
            list.push_back(*std::move(converted));
        }
        return ScriptValue(std::move(list));
    }

    std::optional<ScriptValue> convertMember(JSObjectRef object, JSStringRef name)
    {
        JSValueRef exception = nullptr;
        JSValueRef member = JSObjectGetProperty(context_, object, name, &exception);
        return exception ? std::nullopt : convert(member);
    }

    // The JSON text of a date is its ISO 8601 text in quotes, or null for an invalid date.
    std::optional<ScriptValue> convertDate(JSValueRef date)
    {
        JSValueRef exception = nullptr;
        JSStringRef json = JSValueCreateJSONString(context_, date, 0, &exception);
        if (!json)
            return exception ? std::nullopt : std::optional(ScriptValue());
        QString text = Text(json).toQString();
        if (text == "null"_L1)
            return ScriptValue(nullptr);
        return ScriptValue(text.remove(u'"'));
    }

    JSContextRef context_;
    int maximumValues_;
    int values_ = 0;
    int depth_ = 0;
};

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

std::optional<QString> toText(JSContextRef context, JSValueRef value)
{
    JSValueRef exception = nullptr;
    JSStringRef text = JSValueToStringCopy(context, value, &exception);
    const Text owned(text);
    return text && !exception ? std::optional(owned.toQString()) : std::nullopt;
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

std::optional<ScriptValue> toScriptValue(JSContextRef context, JSValueRef value, int maximumValues)
{
    return Conversion(context, maximumValues).convert(value);
}

std::optional<ScriptValue::Map> toMap(JSContextRef context, JSValueRef value)
{
    JSObjectRef object = JSValueIsObject(context, value) ? JSValueToObject(context, value, nullptr) : nullptr;
    return object ? Conversion(context).convertMembers(object) : std::nullopt;
}

void setMember(JSContextRef context, JSObjectRef object, const QString& name, JSValueRef value)
{
    JSValueRef refused = nullptr; // read-only members, such as `undefined`, stay unchanged
    JSObjectSetProperty(context, object, Text(name).get(), value, kJSPropertyAttributeNone, &refused);
}

} // namespace quor::toolkit::script
