// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/JSValue.h"

namespace quor::toolkit {

/// What a `JSValue` refers to: a value in an engine of this process, or in one of a script's own process. The
/// functions are those of `JSValue`. Keeps its engine alive.
class ValueReference {
public:
    enum class Kind : quint8 { undefined, null, boolean, number, text, array, object, other };

    ValueReference() = default;
    ValueReference(const ValueReference&) = delete;
    ValueReference& operator=(const ValueReference&) = delete;
    virtual ~ValueReference() = default;

    [[nodiscard]] virtual Kind kind() const = 0;
    [[nodiscard]] virtual bool toBool() const = 0;
    [[nodiscard]] virtual double toDouble() const = 0;
    [[nodiscard]] virtual std::optional<QString> toString() const = 0;
    [[nodiscard]] virtual std::optional<ScriptValue::Map> toDictionary() const = 0;
    [[nodiscard]] virtual std::optional<ScriptValue> toScriptValue(int maximumCount) const = 0;
    [[nodiscard]] virtual std::optional<JSValue> property(const QString& name) const = 0;
    [[nodiscard]] virtual std::optional<JSValue> call(const ScriptValue::List& arguments) const = 0;
};

} // namespace quor::toolkit
