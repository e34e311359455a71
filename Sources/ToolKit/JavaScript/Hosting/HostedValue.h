// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/Hosting/HostedEngine.h"
#include "ToolKit/JavaScript/ValueReference.h"

namespace quor::toolkit {

/// A value in an engine of another process, which knows it by a number. Each reading is a request to that
/// process.
class HostedValue final : public ValueReference {
public:
    HostedValue(std::shared_ptr<HostedEngine> engine, quint32 number, Kind kind, bool truth)
        : engine_(std::move(engine))
        , number_(number)
        , kind_(kind)
        , truth_(truth)
    {
    }
    ~HostedValue() override { engine_->release(number_); }

    [[nodiscard]] Kind kind() const override { return kind_; }
    [[nodiscard]] bool toBool() const override { return truth_; }
    [[nodiscard]] double toDouble() const override;
    [[nodiscard]] std::optional<QString> toString() const override;
    [[nodiscard]] std::optional<ScriptValue::Map> toDictionary() const override;
    [[nodiscard]] std::optional<ScriptValue> toScriptValue(int maximumCount) const override;
    [[nodiscard]] std::optional<JSValue> property(const QString& name) const override;
    [[nodiscard]] std::optional<JSValue> call(const ScriptValue::List& arguments) const override;

private:
    /// The value of a request whose reply is an optional value.
    [[nodiscard]] std::optional<ScriptValue> request(
        ScriptOperation operation, ScriptValue::List values = {}) const;
    [[nodiscard]] ScriptValue::List withNumber(ScriptValue::List values) const;

    std::shared_ptr<HostedEngine> engine_;
    quint32 number_;
    Kind kind_;
    bool truth_;
};

} // namespace quor::toolkit
