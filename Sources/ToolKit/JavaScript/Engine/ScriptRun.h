// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/Engine/ScriptEngine.h"
#include "ToolKit/JavaScript/JavaScriptUtilsProtocol.h"

namespace quor::toolkit {

/// Sets the globals in the order parameters, `utils`, helpers, and runs the script. Returns `nullopt` if it
/// throws.
///
/// The functions of the global `utils` call the operations of `utils`. An argument that is missing is
/// undefined. Text arguments are converted by `String(argument)`, so a missing one becomes "undefined". If
/// that throws, the function has no effect and returns its empty result. The arguments `headers` and
/// `parameters` of `request` are ignored if they are not objects or cannot be converted.
[[nodiscard]] std::optional<JSValue> runScript(ScriptEngine& engine,
    const std::shared_ptr<const JavaScriptUtilsProtocol>& utils, const QString& script,
    const ScriptValue::Map& parameters, const ScriptValue::Map& helpers);

} // namespace quor::toolkit
