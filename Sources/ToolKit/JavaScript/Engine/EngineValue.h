// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/Engine/ScriptEngine.h"
#include "ToolKit/JavaScript/ValueReference.h"

namespace quor::toolkit {

/// A value in an engine of this process, protected from garbage collection.
class EngineValue final : public ValueReference {
public:
    EngineValue(std::shared_ptr<ScriptEngine> engine, JSValueRef value);
    ~EngineValue() override;

    [[nodiscard]] Kind kind() const override;
    [[nodiscard]] bool toBool() const override;
    [[nodiscard]] double toDouble() const override;
    [[nodiscard]] std::optional<QString> toString() const override;
    [[nodiscard]] std::optional<ScriptValue::Map> toDictionary() const override;
    [[nodiscard]] std::optional<ScriptValue> toScriptValue(int maximumCount) const override;
    [[nodiscard]] std::optional<JSValue> property(const QString& name) const override;
    [[nodiscard]] std::optional<JSValue> call(const ScriptValue::List& arguments) const override;

private:
    [[nodiscard]] JSContextRef context() const { return engine_->context(); }

    std::shared_ptr<ScriptEngine> engine_;
    JSValueRef value_;
};

} // namespace quor::toolkit
