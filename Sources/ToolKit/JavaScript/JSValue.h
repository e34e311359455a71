// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/ScriptValue.h"

#include <QString>

#include <memory>
#include <optional>

struct OpaqueJSValue;

namespace quor::toolkit {

class ScriptEngine;

/// A handle to a value in a script's engine: the result of a run, or an exception. The engine, its globals
/// and `utils` exist until the last handle of the run is destroyed.
///
/// Conversions can run code of the script (`toString`, getters). If that code throws, the conversion returns
/// an empty result, and the exception is not reported. One thread at a time, any thread.
///
/// An `exceptionHandler` of a plug-in must not store a `JSValue` of its own run: the engine owns the handler,
/// so neither would ever be destroyed. Store texts instead.
class JSValue final {
public:
    /// For the engine. Protects `value` from garbage collection.
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
    [[nodiscard]] bool isObject() const; ///< also true for arrays and functions

    [[nodiscard]] bool toBool() const;
    [[nodiscard]] double toDouble() const; ///< as the script's `Number(value)`; NaN if that throws
    /// As the script's `String(value)`, also for symbols. Returns `nullopt` if that throws.
    [[nodiscard]] std::optional<QString> toString() const;
    /// The elements of an array. Returns `nullopt` for other values, and in the cases of `toScriptValue`.
    [[nodiscard]] std::optional<ScriptValue::List> toArray() const;
    /// The enumerable members of an object; for an array, its elements by index. Returns `nullopt` for other
    /// values, and in the cases of `toScriptValue`.
    [[nodiscard]] std::optional<ScriptValue::Map> toDictionary() const;
    /// A copy of the value and everything in it. Dates become texts in ISO 8601, functions and symbols become
    /// undefined. Returns `nullopt` if a getter throws, if a value contains itself, if values are nested more
    /// than 512 deep, or if there are more than `maximumCount` values.
    [[nodiscard]] std::optional<ScriptValue> toScriptValue(
        int maximumCount = ScriptValue::maximumCount) const;

    /// A member of an object. Returns `nullopt` if the value is not an object, or if the member is missing,
    /// undefined, or has a getter that throws.
    [[nodiscard]] std::optional<JSValue> property(const QString& name) const;
    /// Calls a function and returns its result. Returns `nullopt` if the value is not a function, or if it
    /// throws; the exception then goes to the exception handler of the run.
    [[nodiscard]] std::optional<JSValue> call(const ScriptValue::List& arguments = {}) const;

    // For an exception: the place in the script, from 1. Returns `nullopt` if the engine does not know it, as
    // for a thrown text.
    [[nodiscard]] std::optional<int> line() const;
    [[nodiscard]] std::optional<int> column() const;

private:
    [[nodiscard]] std::optional<int> position(const QString& name) const;

    std::shared_ptr<ScriptEngine> engine_;
    const OpaqueJSValue* value_;
};

} // namespace quor::toolkit
