// SPDX-License-Identifier: MIT
#pragma once

#include <JavaScriptCore/JavaScript.h>

#include <functional>
#include <span>

namespace quor::toolkit {

class ScriptEngine;

/// A C++ function that scripts can call. It gets the arguments as the script passed them; null as the result
/// means undefined.
using HostFunction = std::function<JSValueRef(ScriptEngine& engine, std::span<const JSValueRef> arguments)>;

/// Makes the script's function objects for host functions. Belongs to one engine.
class HostFunctions final {
public:
    HostFunctions(ScriptEngine& engine, JSContextRef context);

    /// Returns a function object that owns `function`. It lives until the script's last reference to it is
    /// gone. It never throws into the script: if `function` throws, the result is undefined.
    [[nodiscard]] JSObjectRef make(HostFunction function) const;

private:
    struct Binding;

    static JSValueRef call(JSContextRef context, JSObjectRef function, JSObjectRef thisObject, size_t count,
        const JSValueRef* arguments, JSValueRef* exception);
    static void finalize(JSObjectRef function);
    static JSClassRef functionClass();

    ScriptEngine& engine_;
    JSObjectRef prototype_; ///< of all functions, so that host functions have `call` and `bind` too
};

} // namespace quor::toolkit
