// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/Engine/ScriptEngine.h"

#include "ToolKit/JavaScript/Engine/EngineValue.h"
#include "ToolKit/JavaScript/Engine/ScriptBridge.h"

#include <array>
#include <utility>
#include <vector>

// The library exports this without declaring it.
extern "C" void JSGlobalContextSetUnhandledRejectionCallback(
    JSGlobalContextRef context, JSObjectRef function, JSValueRef* exception);

namespace quor::toolkit {

using namespace Qt::StringLiterals;

std::shared_ptr<ScriptEngine> ScriptEngine::create()
{
    JSContextGroupRef group = JSContextGroupCreate();
    if (!group)
        return nullptr;
    if (JSGlobalContextRef context = JSGlobalContextCreateInGroup(group, nullptr))
        return std::make_shared<ScriptEngine>(group, context);
    JSContextGroupRelease(group);
    return nullptr;
}

ScriptEngine::ScriptEngine(JSContextGroupRef group, JSGlobalContextRef context)
    : group_(group)
    , context_(context)
    , functions_(*this, context)
{
    // Its output goes nowhere. Deleting a global would cost a third of what an engine costs, because the
    // engine copies its table of globals then.
    setGlobal(u"console"_s, JSValueMakeUndefined(context_));
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
        handles.push_back(handle(values.emplace_back(bridged(argument))));
    return run([&](JSValueRef* exception) {
        return JSObjectCallAsFunction(context_, object, nullptr, values.size(), values.data(), exception);
    });
}

// JavaScriptCore runs the pending promise jobs at the end of the outermost call into it, so `body` runs them
// too.
std::optional<JSValue> ScriptEngine::run(const Body& body)
{
    JSValueRef thrown = nullptr;
    JSValueRef value = body(&thrown);
    if (thrown)
        exceptionHandler_(handle(thrown));
    return value && !thrown ? std::optional(handle(value)) : std::nullopt;
}

void ScriptEngine::reportRejections()
{
    JSObjectRef report = makeFunction([](ScriptEngine& engine, std::span<const JSValueRef> arguments) {
        if (arguments.size() > 1) // the promise and the reason
            engine.exceptionHandler_(engine.handle(arguments[1]));
        return JSValueRef(nullptr);
    });
    JSGlobalContextSetUnhandledRejectionCallback(context_, report, nullptr);
}

JSValue ScriptEngine::handle(JSValueRef value)
{
    return JSValue(std::make_shared<EngineValue>(shared_from_this(), value));
}

JSValue ScriptEngine::error(const QString& message)
{
    const std::array arguments{script::makeText(context_, message)};
    JSValueRef failed = nullptr;
    JSObjectRef error = JSObjectMakeError(context_, arguments.size(), arguments.data(), &failed);
    return handle(error ? error : arguments.front());
}

void ScriptEngine::reportTooLong()
{
    constexpr qsizetype millions = ScriptValue::maximumTextLength >> 20;
    exceptionHandler_(
        error(u"The texts of a value have more than %1 Mi characters together."_s.arg(millions)));
}

JSValueRef ScriptEngine::callHelper(
    const ScriptValue::Function& function, std::span<const JSValueRef> arguments)
{
    script::Conversion conversion(context_);
    ScriptValue::List values;
    for (JSValueRef argument : arguments)
        values.push_back(conversion.value(argument).value_or(ScriptValue()));
    return bridged(function(values));
}

} // namespace quor::toolkit
