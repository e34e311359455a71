// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/ScriptValue.h"

#include <QString>

#include <memory>
#include <optional>

namespace quor::toolkit {

class ValueReference;

/// A handle to a value in a script's engine: the result of a run, or an exception. The engine, its globals
/// and `utils` exist until the last handle of the run is destroyed.
///
/// Conversions and `property` can run code of the script (`toString`, getters). If that code throws, the
/// function returns what its comment says, and the exception is not reported. If it exceeds a limit of the
/// plug-in, or if the texts of a value are too long to be copied (`ScriptValue::maximumTextLength`), the
/// function returns the same, and an error with the reason goes to the error log and to the
/// `exceptionHandler`. A script that has exceeded a limit of time or memory has ended: its values cannot be
/// read any more, and its functions cannot be called. `isUndefined` to `isObject` and `toBool` still work.
///
/// All handles of one run must be used on one thread at a time, which can be any thread. A handle that was
/// moved from can only be assigned to or destroyed.
///
/// The `exceptionHandler` of a plug-in must not store a `JSValue` of its own run: the engine owns the
/// handler, so neither would ever be destroyed. Store texts instead.
class JSValue final {
public:
    // For the engines.
    explicit JSValue(std::shared_ptr<const ValueReference> reference);
    [[nodiscard]] const ValueReference& reference() const { return *reference_; }

    [[nodiscard]] bool isUndefined() const;
    [[nodiscard]] bool isNull() const;
    [[nodiscard]] bool isBoolean() const;
    [[nodiscard]] bool isNumber() const;
    [[nodiscard]] bool isString() const;
    [[nodiscard]] bool isArray() const;
    [[nodiscard]] bool isObject() const; ///< also true for arrays and functions

    /// The same as `Boolean(value)` in a script.
    [[nodiscard]] bool toBool() const;
    /// The same as `Number(value)` in a script. Returns NaN if the value is not a number and cannot be
    /// converted to one.
    [[nodiscard]] double toDouble() const;
    /// The same as `String(value)` in a script, also for symbols. Returns `nullopt` if the conversion throws,
    /// and if the text is longer than `ScriptValue::maximumTextLength`.
    [[nodiscard]] std::optional<QString> toString() const;
    /// The elements of an array. Returns `nullopt` if the value is not an array, and whenever `toScriptValue`
    /// returns `nullopt`.
    [[nodiscard]] std::optional<ScriptValue::List> toArray() const;
    /// The enumerable members of an object. The members of an array are its elements; their names are the
    /// indices. Returns `nullopt` if the value is not an object, and whenever `toScriptValue` returns
    /// `nullopt`.
    [[nodiscard]] std::optional<ScriptValue::Map> toDictionary() const;
    /// A copy of the value with all values that it contains. Dates become texts in ISO 8601, functions and
    /// symbols become undefined. Returns `nullopt` if a getter throws, if a value contains itself, if values
    /// are nested more than 512 levels deep, or if the copy would have more than `maximumCount` values or
    /// texts of more than `ScriptValue::maximumTextLength`. If the plug-in has limits, 2'999'999 values are
    /// the most.
    [[nodiscard]] std::optional<ScriptValue> toScriptValue(
        int maximumCount = ScriptValue::maximumCount) const;

    /// The member `name` of an object. Returns `nullopt` if the value is not an object, and if the member is
    /// missing, is undefined, or has a getter that throws.
    [[nodiscard]] std::optional<JSValue> property(const QString& name) const;
    /// Calls a function and returns its result. Returns `nullopt` if the value is not a function, or if the
    /// function throws. An exception is written to the error log and passed to the `exceptionHandler` that
    /// the plug-in had when it ran the script. The plug-in's limits apply to each call.
    [[nodiscard]] std::optional<JSValue> call(const ScriptValue::List& arguments = {}) const;

    // For an exception: the line and the column of the script at which it was thrown, counted from 1. They
    // return `nullopt` if the engine does not know the position, for instance if the script threw a text.
    [[nodiscard]] std::optional<int> line() const;
    [[nodiscard]] std::optional<int> column() const;

private:
    [[nodiscard]] std::optional<int> position(const QString& name) const;

    std::shared_ptr<const ValueReference> reference_;
};

} // namespace quor::toolkit
