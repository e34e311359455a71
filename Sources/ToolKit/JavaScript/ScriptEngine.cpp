// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/ScriptEngine.h"

#include "ToolKit/JavaScript/ScriptBridge.h"

#include <array>
#include <utility>
#include <vector>

// The library exports this without declaring it.
extern "C" void JSGlobalContextSetUnhandledRejectionCallback(
    JSGlobalContextRef context, JSObjectRef function, JSValueRef* exception);

namespace quor::toolkit {

using namespace Qt::StringLiterals;

std::shared_ptr<ScriptEngine> ScriptEngine::create(ScriptWatch watch)
{
    JSContextGroupRef group = JSContextGroupCreate();
    if (!group)
        return nullptr;
    if (JSGlobalContextRef context = JSGlobalContextCreateInGroup(group, nullptr))
        return std::make_shared<ScriptEngine>(watch, group, context);
    JSContextGroupRelease(group);
    return nullptr;
}

ScriptEngine::ScriptEngine(ScriptWatch watch, JSContextGroupRef group, JSGlobalContextRef context)
    : watch_(watch)
    , group_(group)
    , context_(context)
    , functions_(*this, context)
{
    watch_.install(group_);
    // Deleting a global would cost a third of what an engine costs, because the engine copies its table of
    // globals then.
    const auto hide = [&](const QString& name) { setGlobal(name, JSValueMakeUndefined(context_)); };
    hide(u"console"_s); // its output goes nowhere
    if (watch_.limitsTime())
        hide(u"WebAssembly"_s); // its loops cannot be ended
    reportRejections();
}

ScriptEngine::~ScriptEngine()
{
    JSGlobalContextRelease(context_);
    JSContextGroupRelease(group_);
}

void ScriptEngine::setGlobal(const QString& name, JSValueRef value)
{
    if (name != "__proto__"_L1) // this would set the prototype of the global object
        script::setMember(context_, JSContextGetGlobalObject(context_), name, value);
}

JSValueRef ScriptEngine::bridged(const ScriptValue& value)
{
    return script::fromScriptValue(context_, value, [this](const ScriptValue::Function& function) {
        return makeFunction([function](ScriptEngine& engine, std::span<const JSValueRef> arguments) {
            return engine.callHelper(function, arguments);
        });
    });
}

std::optional<JSValue> ScriptEngine::evaluate(const QString& script)
{
    return run([&](JSValueRef* exception) {
        return JSEvaluateScript(context_, script::Text(script).get(), nullptr, nullptr, 1, exception);
    });
}

std::optional<JSValue> ScriptEngine::call(JSValueRef function, const ScriptValue::List& arguments)
{
    JSObjectRef object
        = JSValueIsObject(context_, function) ? JSValueToObject(context_, function, nullptr) : nullptr;
    if (!object || !JSObjectIsFunction(context_, object))
        return std::nullopt;
    // The handles protect the first values from collection while the others are made.
    std::vector<JSValue> handles;
    std::vector<JSValueRef> values;
    handles.reserve(arguments.size());
    for (const ScriptValue& argument : arguments)
        handles.emplace_back(shared_from_this(), values.emplace_back(bridged(argument)));
    return run([&](JSValueRef* exception) {
        return JSObjectCallAsFunction(context_, object, nullptr, values.size(), values.data(), exception);
    });
}

// JavaScriptCore runs the pending promise jobs at the end of the outermost call into it. That outermost call
// is the one of `frame`, so that the end of the body comes before the jobs, and the end of the call after
// them.
std::optional<JSValue> ScriptEngine::run(const Body& body)
{
    std::optional<JSValue> result;
    std::optional<JSValue> exception;
    {
        const ScriptWatch::Run running(watch_);
        // The script can find this function, as the caller of its own ones, and must not call it again.
        JSObjectRef frame = makeFunction([&, isDone = false](auto&, auto) mutable -> JSValueRef {
            if (std::exchange(isDone, true))
                return nullptr;
            const ScriptWatch::Script script(watch_);
            JSValueRef thrown = nullptr;
            JSValueRef value = body(&thrown);
            if (thrown)
                exception.emplace(shared_from_this(), thrown);
            else if (value)
                result.emplace(shared_from_this(), value);
            return nullptr;
        });
        JSObjectCallAsFunction(context_, frame, nullptr, 0, nullptr, nullptr);
    }
    if (watch_.excess() != ScriptWatch::Excess::none) {
        if (watch_.isRunning()) // a script has called this; it ends too, and its own `run` reports the excess
            return std::nullopt;
        exception.emplace(shared_from_this(), excessError());
    }
    if (!exception)
        return result;
    exceptionHandler_(*exception);
    return std::nullopt;
}

void ScriptEngine::reportRejections()
{
    JSObjectRef report = makeFunction([](ScriptEngine& engine, std::span<const JSValueRef> arguments) {
        if (arguments.size() > 1) // the promise and the reason
            engine.exceptionHandler_(JSValue(engine.shared_from_this(), arguments[1]));
        return JSValueRef(nullptr);
    });
    JSGlobalContextSetUnhandledRejectionCallback(context_, report, nullptr);
}

JSValueRef ScriptEngine::excessError()
{
    const bool isTime = watch_.excess() == ScriptWatch::Excess::time;
    const std::array message{script::makeText(context_,
        isTime ? u"The script exceeded its limit of processor time."_s
               : u"The script exceeded its limit of memory."_s)};
    JSValueRef failed = nullptr;
    // If the engine has ended a promise job, it also ends the next code that runs. Let that be an empty
    // script, not the construction of the error.
    JSEvaluateScript(context_, script::Text(QString()).get(), nullptr, nullptr, 1, &failed);
    failed = nullptr;
    JSObjectRef error = JSObjectMakeError(context_, message.size(), message.data(), &failed);
    return error ? error : message.front();
}

JSValueRef ScriptEngine::callHelper(
    const ScriptValue::Function& function, std::span<const JSValueRef> arguments)
{
    ScriptValue::List values;
    for (JSValueRef argument : arguments)
        values.push_back(script::toScriptValue(context_, argument).value_or(ScriptValue()));
    return bridged(function(values));
}

} // namespace quor::toolkit
