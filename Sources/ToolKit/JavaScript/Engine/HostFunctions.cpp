// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/Engine/HostFunctions.h"

#include "ToolKit/JavaScript/Engine/ScriptBridge.h"
#include "ToolKit/JavaScript/Engine/ScriptEngine.h"

#include <memory>
#include <utility>

namespace quor::toolkit {

using namespace Qt::StringLiterals;

namespace {

JSObjectRef objectMember(JSContextRef context, JSObjectRef object, const QString& name)
{
    JSValueRef member = JSObjectGetProperty(context, object, script::Text(name).get(), nullptr);
    return JSValueToObject(context, member, nullptr);
}

} // namespace

/// What a function object of the engine owns.
struct HostFunctions::Binding {
    ScriptEngine& engine; // outlives everything that runs in its context
    HostFunction function;
};

// The prototype is read before any script can replace it.
HostFunctions::HostFunctions(ScriptEngine& engine, JSContextRef context)
    : engine_(engine)
    , prototype_(objectMember(
          context, objectMember(context, JSContextGetGlobalObject(context), u"Function"_s), u"prototype"_s))
{
}

JSObjectRef HostFunctions::make(HostFunction function) const
{
    auto binding = std::make_unique<Binding>(Binding{engine_, std::move(function)});
    JSObjectRef object = JSObjectMake(engine_.context(), functionClass(), binding.release());
    JSObjectSetPrototype(engine_.context(), object, prototype_);
    return object;
}

JSValueRef HostFunctions::call(JSContextRef context, JSObjectRef function, JSObjectRef /*thisObject*/,
    size_t count, const JSValueRef* arguments, JSValueRef* /*exception*/)
{
    const auto* binding = static_cast<Binding*>(JSObjectGetPrivate(function));
    JSValueRef result = nullptr;
    try {
        result = binding->function(binding->engine, {arguments, count});
    } catch (...) { // an exception must not pass through the engine's stack frames
        result = nullptr;
    }
    return result ? result : JSValueMakeUndefined(context);
}

void HostFunctions::finalize(JSObjectRef function)
{
    delete static_cast<Binding*>(JSObjectGetPrivate(function));
}

JSClassRef HostFunctions::functionClass()
{
    // Made once and kept for the life of the process.
    static auto* const theClass = [] {
        JSClassDefinition definition = kJSClassDefinitionEmpty;
        definition.className = "Function";
        definition.attributes = kJSClassAttributeNoAutomaticPrototype;
        definition.callAsFunction = call;
        definition.finalize = finalize;
        return JSClassCreate(&definition);
    }();
    return theClass;
}

} // namespace quor::toolkit
