// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/ScriptValue.h"

#include <JavaScriptCore/JavaScript.h>

/// Conversion of values to values of an engine and back.
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

/// Makes an object of the engine that calls the function.
using MakeFunction = std::function<JSValueRef(const ScriptValue::Function&)>;
[[nodiscard]] JSValueRef fromScriptValue(
    JSContextRef context, const ScriptValue& value, const MakeFunction& makeFunction);

/// Conversions of values from the engine, which together can have only a limited number of values and length
/// of texts. A conversion can run code of the script, such as getters. If that code throws, the exception is
/// dropped and the result is `nullopt`. It is `nullopt` at the first value that cannot be converted, too.
class Conversion final {
public:
    explicit Conversion(JSContextRef context, int maximumValues = ScriptValue::maximumCount)
        : context_(context)
        , valuesLeft_(maximumValues)
    {
    }

    /// As the script's `String(value)`, but fails for symbols.
    [[nodiscard]] std::optional<QString> text(JSValueRef value);
    // Both return `nullopt` as `JSValue::toScriptValue` and `JSValue::toDictionary` say.
    [[nodiscard]] std::optional<ScriptValue> value(JSValueRef value);
    [[nodiscard]] std::optional<ScriptValue::Map> members(JSValueRef value);

    /// Whether a conversion failed because of the length of the texts.
    [[nodiscard]] bool isTooLong() const { return isTooLong_; }

private:
    [[nodiscard]] std::optional<ScriptValue> object(JSValueRef value);
    [[nodiscard]] std::optional<ScriptValue> elements(JSObjectRef array);
    [[nodiscard]] std::optional<ScriptValue> date(JSValueRef value);
    [[nodiscard]] bool takeLength(double length);

    JSContextRef context_;
    int valuesLeft_;
    qsizetype lengthLeft_ = ScriptValue::maximumTextLength;
    int depth_ = 0;
    bool isTooLong_ = false;
};

/// Sets a member of an object. Has no effect if the object refuses it.
void setMember(JSContextRef context, JSObjectRef object, const QString& name, JSValueRef value);

} // namespace quor::toolkit::script
