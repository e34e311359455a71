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
    // To delete a global costs a third of all that an engine costs, as its table of them is copied then.
    const auto hide = [&](const QString& name) { setGlobal(name, JSValueMakeUndefined(context_)); };
    hide(u"console"_s); // leads nowhere
    if (watch_.limitsTime())
        hide(u"WebAssembly"_s); // its loops cannot be ended
    functionPrototype_ = functionPrototype();
    reportRejections();
}

ScriptEngine::~ScriptEngine()
{
    if (context_)
        JSGlobalContextRelease(context_);
    JSContextGroupRelease(group_);
}

void ScriptEngine::setGlobal(const QString& name, JSValueRef value)
{
    if (name != "__proto__"_L1) // which would set the prototype of all globals
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
    // Handles keep the values from being collected while later ones are made.
    std::vector<JSValue> kept;
    std::vector<JSValueRef> values;
    kept.reserve(arguments.size());
    for (const ScriptValue& argument : arguments)
        kept.emplace_back(shared_from_this(), values.emplace_back(bridged(argument)));
    return run([&](JSValueRef* exception) {
        return JSObjectCallAsFunction(context_, object, nullptr, values.size(), values.data(), exception);
    });
}

// The engine works off the promise jobs as the outermost call into it ends. The body is run from within
// one, so that its end is known.
std::optional<JSValue> ScriptEngine::run(const Body& body)
{
    std::optional<JSValue> result;
    std::optional<JSValue> exception;
    {
        const ScriptWatch::Run running(watch_);
        // Once: a script may get hold of its caller.
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
        if (watch_.isRunning()) // within a script, which ends, too, and tells
            return std::nullopt;
        exception.emplace(shared_from_this(), excessError());
    }
    if (!exception)
        return result;
    if (exceptionHandler_)
        exceptionHandler_(*exception);
    return std::nullopt;
}

void ScriptEngine::reportRejections()
{
    JSObjectRef report = makeFunction([](ScriptEngine& engine, std::span<const JSValueRef> arguments) {
        if (engine.exceptionHandler_ && arguments.size() > 1) // the promise, then the reason
            engine.exceptionHandler_(JSValue(engine.shared_from_this(), arguments[1]));
        return JSValueRef(nullptr);
    });
    JSGlobalContextSetUnhandledRejectionCallback(context_, report, nullptr);
}

JSValueRef ScriptEngine::excessError()
{
    const bool isTime = watch_.excess() == ScriptWatch::Excess::time;
    const std::array message{script::makeText(context_,
        isTime ? u"The script ran for longer than it may."_s
               : u"The script took more memory than it may."_s)};
    JSValueRef failed = nullptr;
    // An end that was put to a promise job strikes whatever runs next, too.
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
    static auto* const theClass = [] {
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
