// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/JavaScriptPlugin.h"

#include "ToolKit/JavaScript/Engine/ScriptRun.h"
#include "ToolKit/JavaScript/Hosting/HostedEngine.h"
#include "ToolKit/JavaScript/JavaScriptUtils.h"
#include "ToolKit/Logging/Logger.h"

namespace quor::toolkit {

using namespace Qt::StringLiterals;

namespace {

ScriptLimits limitsOf(const JavaScriptPlugin& plugin)
{
    const qint64 byDefault = plugin.timeLimit ? JavaScriptPlugin::defaultMemoryLimit : 0;
    return {plugin.timeLimit, plugin.memoryLimit.value_or(byDefault)};
}

} // namespace

std::optional<JSValue> JavaScriptPlugin::execute(
    const QString& script, const ScriptValue::Map& parameters, const ScriptValue::Map& helpers) const
{
    const auto report = [handler = exceptionHandler](const JSValue& exception) {
        Logger::log(exception.toString().value_or(u"an exception without a text"_s), __FILE__, "execute",
            __LINE__, true);
        if (handler)
            handler(exception);
    };
    const auto utils = std::make_shared<JavaScriptUtils>(u"Quor"_s, baseURL, localization);
    utils->setResponseLimit(responseLimit);
    if (const ScriptLimits limits = limitsOf(*this); limits.time || limits.memory > 0) {
        const auto hosted = std::make_shared<HostedEngine>(limits, utils, report);
        return hosted->run(script, parameters, helpers);
    }
    const auto engine = ScriptEngine::create();
    if (!engine)
        return std::nullopt;
    engine->setExceptionHandler(report);
    return runScript(*engine, utils, script, parameters, helpers);
}

} // namespace quor::toolkit
