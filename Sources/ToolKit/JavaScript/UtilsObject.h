// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/JavaScriptUtils.h"
#include "ToolKit/JavaScript/ScriptEngine.h"

namespace quor::toolkit {

/// Sets the global `utils`, an object whose functions call the operations of `utils`.
///
/// An argument that is missing is undefined. Text arguments are converted by `String(argument)`, so a missing
/// one becomes "undefined". If that throws, the function has no effect and returns its empty result. The
/// arguments `headers` and `parameters` of `request` are ignored if they are not objects or cannot be
/// converted.
void installUtils(ScriptEngine& engine, const std::shared_ptr<const JavaScriptUtils>& utils);

} // namespace quor::toolkit
