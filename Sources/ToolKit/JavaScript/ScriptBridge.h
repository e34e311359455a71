// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/ScriptValue.h"

#include <JavaScriptCore/JavaScript.h>

/// Values into an engine's form and back. Conversions out of it run the script's code where an object brings
/// some; what that throws is dropped and the conversion gives nothing.
namespace quor::toolkit::script {

/// A text of the engine, owned.
class Text final {
public:
    explicit Text(const QString& text)
        : Text(JSStringCreateWithCharacters(
            reinterpret_cast<const JSChar*>(text.utf16()), static_cast<size_t>(text.size())))
    {
    }
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

/// As `String(value)`.
[[nodiscard]] std::optional<QString> toText(JSContextRef context, JSValueRef value);

/// Makes the function of a `ScriptValue::Function`.
using MakeFunction = std::function<JSValueRef(const ScriptValue::Function&)>;
[[nodiscard]] JSValueRef fromScriptValue(
    JSContextRef context, const ScriptValue& value, const MakeFunction& makeFunction);

/// None as `JSValue::toScriptValue` says.
[[nodiscard]] std::optional<ScriptValue> toScriptValue(
    JSContextRef context, JSValueRef value, int maximumValues = ScriptValue::maximumCount);
[[nodiscard]] std::optional<ScriptValue::Map> toMap(JSContextRef context, JSValueRef value);

void setMember(JSContextRef context, JSObjectRef object, const QString& name, JSValueRef value);

} // namespace quor::toolkit::script
