// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/Hosting/HostedValue.h"

#include <algorithm>
#include <limits>

namespace quor::toolkit {

namespace {

template <typename T>
std::optional<T> alternative(std::optional<ScriptValue> value)
{
    auto* within = value ? std::get_if<T>(&value->value) : nullptr;
    return within ? std::optional(std::move(*within)) : std::nullopt;
}

} // namespace

double HostedValue::toDouble() const
{
    return alternative<double>(request(ScriptOperation::toDouble))
        .value_or(std::numeric_limits<double>::quiet_NaN());
}

std::optional<QString> HostedValue::toString() const
{
    return alternative<QString>(request(ScriptOperation::toString));
}

std::optional<ScriptValue::Map> HostedValue::toDictionary() const
{
    return alternative<ScriptValue::Map>(request(ScriptOperation::toDictionary));
}

std::optional<ScriptValue> HostedValue::toScriptValue(int maximumCount) const
{
    constexpr int largest = ScriptMessage::maximumCount - 1; // beside the list that the reply puts it into
    return request(ScriptOperation::toScriptValue, {std::min(maximumCount, largest)});
}

std::optional<JSValue> HostedValue::property(const QString& name) const
{
    return engine_->requestHandle(ScriptOperation::property, withNumber({name}));
}

std::optional<JSValue> HostedValue::call(const ScriptValue::List& arguments) const
{
    return engine_->requestHandle(ScriptOperation::call, withNumber({ScriptValue(arguments)}));
}

std::optional<ScriptValue> HostedValue::request(ScriptOperation operation, ScriptValue::List values) const
{
    auto reply = engine_->request(operation, withNumber(std::move(values)));
    auto* optional = reply ? std::get_if<ScriptValue::List>(&reply->value) : nullptr;
    return optional && !optional->empty() ? std::optional(std::move(optional->front())) : std::nullopt;
}

ScriptValue::List HostedValue::withNumber(ScriptValue::List values) const
{
    values.insert(values.begin(), ScriptValue(static_cast<double>(number_)));
    return values;
}

} // namespace quor::toolkit
