// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/JavaScriptPlugin.h"

#include "ToolKit/JavaScript/JavaScriptUtils.h"
#include "ToolKit/JavaScript/ScriptEngine.h"
#include "ToolKit/JavaScript/UtilsObject.h"
#include "ToolKit/Logging/Logger.h"

namespace quor::toolkit {

using namespace Qt::StringLiterals;

std::optional<JSValue> JavaScriptPlugin::execute(
    const QString& script, const ScriptValue::Map& parameters, const ScriptValue::Map& helpers) const
{
    const auto engine = ScriptEngine::create(ScriptWatch(timeLimit, memoryLimit));
    if (!engine)
        return std::nullopt;
    for (const auto& [name, value] : parameters)
        engine->setGlobal(name, engine->bridged(value));
    engine->setExceptionHandler([handler = exceptionHandler](const JSValue& exception) {
        Logger::log(exception.toString().value_or(u"an exception without a text"_s), __FILE__, "execute",
            __LINE__, true);
        if (handler)
            handler(exception);
    });
    const auto utils = std::make_shared<JavaScriptUtils>(u"Quor"_s, baseURL, localization);
    utils->setResponseLimit(responseLimit);
    installUtils(*engine, utils);
    for (const auto& [name, value] : helpers)
        engine->setGlobal(name, engine->bridged(value));
    return engine->evaluate(script);
}

} // namespace quor::toolkit
