// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/Hosting/HostCallServer.h"

namespace quor::toolkit {

ScriptValue HostCallServer::serve(
    ScriptOperation operation, const ScriptValue::List& values, const MakeHandle& makeHandle) const
{
    const auto handle = [&] { return values.empty() ? std::nullopt : makeHandle(values.front()); };
    switch (operation) {
    case ScriptOperation::report:
        if (const auto exception = handle())
            handler_(*exception);
        return {};
    case ScriptOperation::log:
        if (const auto value = handle())
            utils_->log(*value);
        return {};
    case ScriptOperation::removeFile:
        utils_->removeFile(textAt(values, 0));
        return {};
    case ScriptOperation::fileExists:
        return utils_->fileExists(textAt(values, 0));
    case ScriptOperation::writeToFile:
        utils_->writeToFile(textAt(values, 0), textAt(values, 1));
        return {};
    case ScriptOperation::contentsOfFile:
        return optionalValue(utils_->contentsOfFile(textAt(values, 0)));
    case ScriptOperation::request:
        return request(values);
    case ScriptOperation::reply:
    case ScriptOperation::release:
    case ScriptOperation::prepare:
    case ScriptOperation::run:
    case ScriptOperation::call:
    case ScriptOperation::toDouble:
    case ScriptOperation::toString:
    case ScriptOperation::toDictionary:
    case ScriptOperation::toScriptValue:
    case ScriptOperation::property:
    case ScriptOperation::helper:
        return {};
    }
    return {};
}

ScriptValue HostCallServer::request(const ScriptValue::List& values) const
{
    JavaScriptUtils::Headers headers;
    for (const auto& [name, value] : mapAt(values, 2))
        headers.emplace(name, plainText(value));
    const ScriptValue::List given = listAt(values, 3);
    return utils_->request(textAt(values, 0), textAt(values, 1), headers,
        given.empty() ? std::nullopt : std::optional(mapAt(given, 0)));
}

} // namespace quor::toolkit
