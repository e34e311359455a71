// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/JSValue.h"
#include "ToolKit/JavaScript/ScriptWatch.h"

#include <JavaScriptCore/JavaScript.h>

#include <functional>
#include <memory>
#include <optional>
#include <span>

namespace quor::toolkit {

/// An engine with one context of its own: globals are set, functions of ours made, texts evaluated in it.
/// Lives as long as a `JSValue` of it. One thread at a time, any thread.
class ScriptEngine final : public std::enable_shared_from_this<ScriptEngine> {
public:
    using ExceptionHandler = std::function<void(const JSValue& exception)>;
    /// Gets the arguments as the script passed them, and gives the result.
    using HostFunction = std::function<JSValueRef(ScriptEngine& engine, std::span<const JSValueRef>)>;

    /// None if the machine has no room for one.
    [[nodiscard]] static std::shared_ptr<ScriptEngine> create(ScriptWatch watch);
    ScriptEngine(ScriptWatch watch, JSContextGroupRef group);
    ~ScriptEngine();
    ScriptEngine(const ScriptEngine&) = delete;
    ScriptEngine& operator=(const ScriptEngine&) = delete;

    [[nodiscard]] JSContextRef context() const { return context_; }
    [[nodiscard]] ScriptWatch& watch() { return watch_; }

    void setExceptionHandler(ExceptionHandler handler) { exceptionHandler_ = std::move(handler); }
    void setGlobal(const QString& name, JSValueRef value);
    [[nodiscard]] JSValueRef bridged(const ScriptValue& value);

    /// A function that never throws into the script; it lives until the script's last reference goes.
    [[nodiscard]] JSObjectRef makeFunction(HostFunction function);

    /// None where the script throws.
    [[nodiscard]] std::optional<JSValue> evaluate(const QString& script);
    [[nodiscard]] std::optional<JSValue> call(JSValueRef function, const ScriptValue::List& arguments);

private:
    static JSValueRef callHost(JSContextRef context, JSObjectRef function, JSObjectRef thisObject,
        size_t count, const JSValueRef* arguments, JSValueRef* exception);
    static void finalizeHost(JSObjectRef function);
    static JSClassRef functionClass();

    [[nodiscard]] JSObjectRef functionPrototype() const;
    [[nodiscard]] JSValueRef callHelper(
        const ScriptValue::Function& function, std::span<const JSValueRef> arguments);
    void reportRejections();
    using Body = std::function<JSValueRef(JSValueRef* exception)>;
    [[nodiscard]] std::optional<JSValue> run(const Body& body);
    [[nodiscard]] JSValueRef excessError();

    ScriptWatch watch_;
    ExceptionHandler exceptionHandler_;
    JSContextGroupRef group_;
    JSGlobalContextRef context_;
    JSObjectRef functionPrototype_ = nullptr;
};

} // namespace quor::toolkit
