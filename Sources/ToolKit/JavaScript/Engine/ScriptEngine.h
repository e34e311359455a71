// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Callback.h"
#include "ToolKit/JavaScript/Engine/HostFunctions.h"
#include "ToolKit/JavaScript/JSValue.h"

#include <JavaScriptCore/JavaScript.h>

#include <functional>
#include <memory>
#include <optional>

namespace quor::toolkit {

/// A JavaScript engine with one context, in which scripts and their functions run. It passes exceptions that
/// a script does not catch to a handler. Exists as long as a `JSValue` of it. One thread at a time, any
/// thread.
class ScriptEngine final : public std::enable_shared_from_this<ScriptEngine> {
public:
    using ExceptionHandler = platform::Callback<void(const JSValue& exception)>;

    /// Returns null if there is not enough memory for an engine.
    [[nodiscard]] static std::shared_ptr<ScriptEngine> create();
    /// For `create`. Takes over the group and the context.
    ScriptEngine(JSContextGroupRef group, JSGlobalContextRef context);
    ~ScriptEngine();
    ScriptEngine(const ScriptEngine&) = delete;
    ScriptEngine& operator=(const ScriptEngine&) = delete;

    [[nodiscard]] JSContextRef context() const { return context_; }

    void setExceptionHandler(ExceptionHandler handler) { exceptionHandler_ = std::move(handler); }
    void setGlobal(const QString& name, JSValueRef value);
    /// Converts the value, with functions in it, to a value of this engine.
    [[nodiscard]] JSValueRef bridged(const ScriptValue& value);
    [[nodiscard]] JSObjectRef makeFunction(HostFunction function)
    {
        return functions_.make(std::move(function));
    }

    /// Runs the script and the promise jobs that it leaves, and returns the value of its last expression.
    /// Returns `nullopt` if the script throws.
    [[nodiscard]] std::optional<JSValue> evaluate(const QString& script);
    /// Calls a function of the script, likewise. Returns `nullopt` also if `function` is not a function.
    [[nodiscard]] std::optional<JSValue> call(JSValueRef function, const ScriptValue::List& arguments);

    [[nodiscard]] JSValue handle(JSValueRef value);
    /// Makes an `Error` of the script with this message.
    [[nodiscard]] JSValue error(const QString& message);
    /// Passes an error to the handler: texts were too long to be copied.
    void reportTooLong();

private:
    [[nodiscard]] JSValueRef callHelper(
        const ScriptValue::Function& function, std::span<const JSValueRef> arguments);
    void reportRejections();
    using Body = std::function<JSValueRef(JSValueRef* exception)>;
    [[nodiscard]] std::optional<JSValue> run(const Body& body);

    ExceptionHandler exceptionHandler_;
    JSContextGroupRef group_;
    JSGlobalContextRef context_;
    HostFunctions functions_;
};

} // namespace quor::toolkit
