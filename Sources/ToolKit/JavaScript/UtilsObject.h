// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/JavaScriptUtils.h"
#include "ToolKit/JavaScript/ScriptEngine.h"

namespace quor::toolkit {

/// Sets the object that a script sees as `utils`, with the functions of `utils` behind it.
///
/// A missing argument counts as undefined; texts are what `String(argument)` gives, so "undefined" for a
/// missing one. Where that throws, the function does nothing and gives its empty result. Of `request`,
/// `headers` and `parameters` count as absent where they are no objects or cannot be converted.
void installUtils(ScriptEngine& engine, const std::shared_ptr<const JavaScriptUtils>& utils);

} // namespace quor::toolkit
