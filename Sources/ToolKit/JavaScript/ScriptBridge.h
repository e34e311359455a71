// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/ScriptValue.h"

#include <JavaScriptCore/JavaScript.h>

/// Conversion of values to values of an engine and back. A conversion from the engine can run code of the
/// script, such as getters. If that code throws, the exception is dropped and the result is `nullopt`.
namespace quor::toolkit::script {

/// An owned string of the engine.
class Text final {
public:
    explicit Text(const QString& text)
        : Text(JSStringCreateWithCharacters(
            reinterpret_cast<const JSChar*>(text.utf16()), static_cast<size_t>(text.size())))
    {
    }
    /// Takes over `adopted`, which can be null.
    explicit Text(JSStringRef adopted)
        : text_(adopted)
    {
    }
    ~Text()
    {
        if (text_)
            JSStringRelease(text_);
    }
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;

    [[nodiscard]] JSStringRef get() const { return text_; }
    [[nodiscard]] QString toQString() const;

private:
    JSStringRef text_;
};

[[nodiscard]] JSValueRef makeText(JSContextRef context, const QString& text);

/// As the script's `String(value)`.
[[nodiscard]] std::optional<QString> toText(JSContextRef context, JSValueRef value);

/// Makes an object of the engine that calls the function.
using MakeFunction = std::function<JSValueRef(const ScriptValue::Function&)>;
[[nodiscard]] JSValueRef fromScriptValue(
    JSContextRef context, const ScriptValue& value, const MakeFunction& makeFunction);

// Both return `nullopt` as `JSValue::toScriptValue` and `JSValue::toDictionary` say.
[[nodiscard]] std::optional<ScriptValue> toScriptValue(
    JSContextRef context, JSValueRef value, int maximumValues = ScriptValue::maximumCount);
[[nodiscard]] std::optional<ScriptValue::Map> toMap(JSContextRef context, JSValueRef value);

/// Sets a member of an object. Has no effect if the object refuses it.
void setMember(JSContextRef context, JSObjectRef object, const QString& name, JSValueRef value);

} // namespace quor::toolkit::script
