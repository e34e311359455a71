// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/Hosting/ScriptHost.h"

#include "ToolKit/JavaScript/Engine/ScriptRun.h"

namespace quor::toolkit {

ScriptHost::ScriptHost(platform::FileDescriptor socket)
    : channel_(std::move(socket), ScriptChannel::Functions::accepted)
{
    channel_.setServe([this](ScriptOperation operation, const ScriptValue::List& values) {
        return serve(operation, values);
    });
}

ScriptValue ScriptHost::serve(ScriptOperation operation, const ScriptValue::List& values)
{
    const auto value = values_.value(numberAt(values, 0)); // of the operations that read a value
    switch (operation) {
    case ScriptOperation::prepare:
        return prepare(values);
    case ScriptOperation::run:
        return run(values);
    case ScriptOperation::release:
        for (size_t i = 0; i < values.size(); ++i)
            values_.remove(numberAt(values, i).value_or(0));
        return {};
    case ScriptOperation::call:
        return value ? reference(value->call(listAt(values, 1))) : ScriptValue();
    case ScriptOperation::toDouble:
        return value ? optionalValue(std::optional(value->toDouble())) : ScriptValue();
    case ScriptOperation::toString:
        return value ? optionalValue(value->toString()) : ScriptValue();
    case ScriptOperation::toDictionary:
        return value ? optionalValue(value->toDictionary()) : ScriptValue();
    case ScriptOperation::toScriptValue:
        return value ? optionalValue(value->toScriptValue(static_cast<int>(numberAt(values, 1).value_or(0))))
                     : ScriptValue();
    case ScriptOperation::property:
        return value ? reference(value->property(textAt(values, 1))) : ScriptValue();
    case ScriptOperation::reply:
    case ScriptOperation::report:
    case ScriptOperation::helper:
    case ScriptOperation::removeFile:
    case ScriptOperation::fileExists:
    case ScriptOperation::writeToFile:
    case ScriptOperation::contentsOfFile:
    case ScriptOperation::log:
    case ScriptOperation::request:
        return {};
    }
    return {};
}

ScriptValue ScriptHost::prepare(const ScriptValue::List& values)
{
    engine_ = ScriptEngine::create();
    if (!engine_)
        return false;
    engine_->setExceptionHandler([this](const JSValue& exception) {
        (void)channel_.request(ScriptOperation::report, {values_.add(exception)});
    });
    utils_ = std::make_shared<ForwardedUtils>(channel_, values_, mapAt(values, 0));
    return true;
}

ScriptValue ScriptHost::run(const ScriptValue::List& values)
{
    return engine_
        ? reference(runScript(*engine_, utils_, textAt(values, 0), mapAt(values, 1), mapAt(values, 2)))
        : ScriptValue();
}

ScriptValue ScriptHost::reference(const std::optional<JSValue>& value)
{
    return value ? ScriptValue::List{values_.add(*value)} : ScriptValue::List();
}

} // namespace quor::toolkit
