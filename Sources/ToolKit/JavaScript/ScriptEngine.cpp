// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/ScriptEngine.h"

#include "ToolKit/JavaScript/ScriptBridge.h"

#include <array>
#include <utility>
#include <vector>

namespace quor::toolkit {

using namespace Qt::StringLiterals;

namespace {

/// What stands behind a function of ours in the engine.
struct HostBinding {
    ScriptEngine* engine; // outlives all that runs in its context
    ScriptEngine::HostFunction function;
};

} // namespace

std::shared_ptr<ScriptEngine> ScriptEngine::create(ScriptWatch watch)
{
    JSContextGroupRef group = JSContextGroupCreate();
    if (!group)
        return nullptr;
    auto engine = std::make_shared<ScriptEngine>(watch, group);
    return engine->context_ ? engine : nullptr;
}

ScriptEngine::ScriptEngine(ScriptWatch watch, JSContextGroupRef group)
    : watch_(watch)
    , group_(group)
    , context_(JSGlobalContextCreateInGroup(group, nullptr))
{
    if (!context_)
        return;
    watch_.install(group_);
    JSObjectRef global = JSContextGetGlobalObject(context_);
    // The engine brings one that leads nowhere.
    JSObjectDeleteProperty(context_, global, script::Text(u"console"_s).get(), nullptr);
    functionPrototype_ = functionPrototype();
}

ScriptEngine::~ScriptEngine()
{
    if (context_)
        JSGlobalContextRelease(context_);
    JSContextGroupRelease(group_);
}

void ScriptEngine::setGlobal(const QString& name, JSValueRef value)
{
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

JSObjectRef ScriptEngine::makeFunction(HostFunction function)
{
    auto binding = std::make_unique<HostBinding>(HostBinding{this, std::move(function)});
    JSObjectRef object = JSObjectMake(context_, functionClass(), binding.release());
    if (functionPrototype_) // so that `call` and `bind` are there
        JSObjectSetPrototype(context_, object, functionPrototype_);
    return object;
}

std::optional<JSValue> ScriptEngine::evaluate(const QString& script)
{
    const ScriptWatch::Run run(watch_);
    JSValueRef exception = nullptr;
    JSValueRef result
        = JSEvaluateScript(context_, script::Text(script).get(), nullptr, nullptr, 1, &exception);
    return outcome(result, exception);
}

std::optional<JSValue> ScriptEngine::call(JSValueRef function, const ScriptValue::List& arguments)
{
    JSObjectRef object
        = JSValueIsObject(context_, function) ? JSValueToObject(context_, function, nullptr) : nullptr;
    if (!object || !JSObjectIsFunction(context_, object))
        return std::nullopt;
    const ScriptWatch::Run run(watch_);
    // Handles keep the values from being collected while later ones are made.
    std::vector<JSValue> kept;
    std::vector<JSValueRef> values;
    kept.reserve(arguments.size());
    for (const ScriptValue& argument : arguments)
        kept.emplace_back(shared_from_this(), values.emplace_back(bridged(argument)));
    JSValueRef exception = nullptr;
    JSValueRef result
        = JSObjectCallAsFunction(context_, object, nullptr, values.size(), values.data(), &exception);
    return outcome(result, exception);
}

std::optional<JSValue> ScriptEngine::outcome(JSValueRef result, JSValueRef exception)
{
    if (!exception)
        return result ? std::optional(JSValue(shared_from_this(), result)) : std::nullopt;
    if (watch_.excess() != ScriptWatch::Excess::none)
        exception = excessError();
    const JSValue kept(shared_from_this(), exception);
    if (exceptionHandler_)
        exceptionHandler_(kept);
    return std::nullopt;
}

JSValueRef ScriptEngine::excessError()
{
    const bool isTime = watch_.excess() == ScriptWatch::Excess::time;
    const std::array message{script::makeText(context_,
        isTime ? u"The script ran for longer than it may."_s
               : u"The script took more memory than it may."_s)};
    JSValueRef failed = nullptr;
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

JSValueRef ScriptEngine::callHost(JSContextRef context, JSObjectRef function, JSObjectRef /*thisObject*/,
    size_t count, const JSValueRef* arguments, JSValueRef* exception)
{
    auto* binding = static_cast<HostBinding*>(JSObjectGetPrivate(function));
    ScriptEngine& engine = *binding->engine;
    JSValueRef result = nullptr;
    if (engine.watch_.excess() == ScriptWatch::Excess::none) {
        try {
            result = binding->function(engine, {arguments, count});
        } catch (...) { // the engine's own frames lie in between: nothing may fly through them
            result = nullptr;
        }
    }
    if (engine.watch_.endAgain())
        *exception = script::makeText(context, u"The script has to end."_s);
    return result ? result : JSValueMakeUndefined(context);
}

void ScriptEngine::finalizeHost(JSObjectRef function)
{
    delete static_cast<HostBinding*>(JSObjectGetPrivate(function));
}

JSClassRef ScriptEngine::functionClass()
{
    // Like a literal: made once, kept as long as the process.
    static const JSClassRef theClass = [] {
        JSClassDefinition definition = kJSClassDefinitionEmpty;
        definition.className = "Function";
        definition.attributes = kJSClassAttributeNoAutomaticPrototype;
        definition.callAsFunction = callHost;
        definition.finalize = finalizeHost;
        return JSClassCreate(&definition);
    }();
    return theClass;
}

JSObjectRef ScriptEngine::functionPrototype() const
{
    JSObjectRef global = JSContextGetGlobalObject(context_);
    JSValueRef constructor
        = JSObjectGetProperty(context_, global, script::Text(u"Function"_s).get(), nullptr);
    JSObjectRef object = JSValueToObject(context_, constructor, nullptr);
    JSValueRef prototype = JSObjectGetProperty(context_, object, script::Text(u"prototype"_s).get(), nullptr);
    return JSValueToObject(context_, prototype, nullptr);
}

} // namespace quor::toolkit
