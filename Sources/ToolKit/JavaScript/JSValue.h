// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/ScriptValue.h"

#include <QString>

#include <memory>
#include <optional>

struct OpaqueJSValue;

namespace quor::toolkit {

class ScriptEngine;

/// A value inside a script's engine: the result of a run, or the exception that ended one. The engine, its
/// globals and `utils` live until the last value of the run is gone.
///
/// The conversions may run code of the script (`toString`, getters); an exception in it makes them give
/// nothing and is reported nowhere. One thread at a time, any thread. A handler that the plug-in's
/// `exceptionHandler` owns must not own a value of that run, or both live for ever: keep texts instead.
class JSValue final {
public:
    /// Protects `value` from collection.
    JSValue(std::shared_ptr<ScriptEngine> engine, const OpaqueJSValue* value);
    JSValue(const JSValue& other);
    JSValue(JSValue&& other) noexcept;
    JSValue& operator=(JSValue other) noexcept;
    ~JSValue();

    [[nodiscard]] bool isUndefined() const;
    [[nodiscard]] bool isNull() const;
    [[nodiscard]] bool isBoolean() const;
    [[nodiscard]] bool isNumber() const;
    [[nodiscard]] bool isString() const;
    [[nodiscard]] bool isArray() const;
    [[nodiscard]] bool isObject() const; ///< true of arrays and functions too

    [[nodiscard]] bool toBool() const;
    [[nodiscard]] double toDouble() const; ///< NaN for what is no number
    /// As the script's `String(value)`, of symbols too; none where that throws.
    [[nodiscard]] std::optional<QString> toString() const;
    /// The elements of an array. None for anything else, and as for `toScriptValue`.
    [[nodiscard]] std::optional<ScriptValue::List> toArray() const;
    /// The enumerable members of any object, an array's by index. None for anything else, and as below.
    [[nodiscard]] std::optional<ScriptValue::Map> toDictionary() const;
    /// A copy of the value and of all within it. Dates are ISO 8601 texts, functions and symbols undefined.
    /// None where a getter throws, or with cycles, nesting beyond 512 levels or more values than told.
    [[nodiscard]] std::optional<ScriptValue> toScriptValue(
        int maximumCount = ScriptValue::maximumCount) const;

    /// A member of an object; none for anything else, where it is missing or where its getter throws.
    [[nodiscard]] std::optional<JSValue> property(const QString& name) const;
    /// Calls a function. None where the value is none, or where it throws, which goes to the exception
    /// handler of the run.
    [[nodiscard]] std::optional<JSValue> call(const ScriptValue::List& arguments = {}) const;

    /// Of an exception: where in the script it arose, from 1. None where the engine does not know, as for
    /// a thrown text.
    [[nodiscard]] std::optional<int> line() const;
    [[nodiscard]] std::optional<int> column() const;

private:
    [[nodiscard]] std::optional<int> position(const QString& name) const;

    std::shared_ptr<ScriptEngine> engine_;
    const OpaqueJSValue* value_;
};

} // namespace quor::toolkit
