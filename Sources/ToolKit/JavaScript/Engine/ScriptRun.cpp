// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/Engine/ScriptRun.h"

#include "ToolKit/JavaScript/Engine/ScriptBridge.h"

namespace quor::toolkit {

using namespace Qt::StringLiterals;

namespace {

using Arguments = std::span<const JSValueRef>;
using Utils = std::shared_ptr<const JavaScriptUtilsProtocol>;

JSValueRef argument(const ScriptEngine& engine, Arguments arguments, size_t index)
{
    return index < arguments.size() ? arguments[index] : JSValueMakeUndefined(engine.context());
}

std::optional<QString> text(const ScriptEngine& engine, Arguments arguments, size_t index)
{
    return script::Conversion(engine.context()).text(argument(engine, arguments, index));
}

/// A function with one text as its argument and a text as its result.
template <typename Operation>
HostFunction textFunction(Operation operation)
{
    return [operation](ScriptEngine& engine, Arguments arguments) {
        const auto given = text(engine, arguments, 0);
        return script::makeText(engine.context(), given ? operation(*given) : QString());
    };
}

JavaScriptUtilsProtocol::Headers headerFields(const ScriptEngine& engine, JSValueRef value)
{
    JavaScriptUtilsProtocol::Headers fields;
    const auto members = script::Conversion(engine.context()).members(value);
    if (!members)
        return fields;
    for (const auto& [name, member] : *members) {
        if (!member.as<std::monostate>() && !member.as<std::nullptr_t>())
            fields.emplace(name, plainText(member));
    }
    return fields;
}

JSValueRef request(const JavaScriptUtilsProtocol& utils, ScriptEngine& engine, Arguments arguments)
{
    const auto url = text(engine, arguments, 0);
    const auto method = text(engine, arguments, 1);
    ScriptValue::Map record;
    if (url && method)
        record = utils.request(*url, *method, headerFields(engine, argument(engine, arguments, 2)),
            script::Conversion(engine.context()).members(argument(engine, arguments, 3)));
    return engine.bridged(std::move(record));
}

using Add = std::function<void(const QString& name, HostFunction)>;

void addFileFunctions(const Add& add, const Utils& utils)
{
    add(u"removeFile"_s, [utils](ScriptEngine& engine, Arguments arguments) -> JSValueRef {
        if (const auto path = text(engine, arguments, 0))
            utils->removeFile(*path);
        return nullptr;
    });
    add(u"fileExists"_s, [utils](ScriptEngine& engine, Arguments arguments) {
        const auto path = text(engine, arguments, 0);
        return JSValueMakeBoolean(engine.context(), path && utils->fileExists(*path));
    });
    add(u"writeToFile"_s, [utils](ScriptEngine& engine, Arguments arguments) -> JSValueRef {
        const auto path = text(engine, arguments, 0);
        const auto contents = text(engine, arguments, 1);
        if (path && contents)
            utils->writeToFile(*path, *contents);
        return nullptr;
    });
    add(u"contentsOfFile"_s, [utils](ScriptEngine& engine, Arguments arguments) -> JSValueRef {
        const auto path = text(engine, arguments, 0);
        const auto contents = path ? utils->contentsOfFile(*path) : std::nullopt;
        return contents ? script::makeText(engine.context(), *contents) : nullptr;
    });
}

void installUtils(ScriptEngine& engine, const Utils& utils)
{
    // Set before its functions are added, so that the object is not garbage-collected meanwhile.
    JSObjectRef object = JSObjectMake(engine.context(), nullptr, nullptr);
    engine.setGlobal(u"utils"_s, object);
    const auto add = [&](const QString& name, HostFunction function) {
        script::setMember(engine.context(), object, name, engine.makeFunction(std::move(function)));
    };
    addFileFunctions(add, utils);
    add(u"base64Encode"_s, textFunction([utils](const QString& text) { return utils->base64Encode(text); }));
    add(u"base64Decode"_s, textFunction([utils](const QString& text) { return utils->base64Decode(text); }));
    add(u"localize"_s, textFunction([utils](const QString& key) { return utils->localize(key); }));
    add(u"log"_s, [utils](ScriptEngine& running, Arguments arguments) -> JSValueRef {
        utils->log(running.handle(argument(running, arguments, 0)));
        return nullptr;
    });
    add(u"markdownToHTML"_s,
        textFunction([utils](const QString& text) { return utils->markdownToHTML(text); }));
    add(u"request"_s,
        [utils](ScriptEngine& running, Arguments arguments) { return request(*utils, running, arguments); });
}

} // namespace

std::optional<JSValue> runScript(ScriptEngine& engine, const Utils& utils, const QString& script,
    const ScriptValue::Map& parameters, const ScriptValue::Map& helpers)
{
    for (const auto& [name, value] : parameters)
        engine.setGlobal(name, engine.bridged(value));
    installUtils(engine, utils);
    for (const auto& [name, value] : helpers)
        engine.setGlobal(name, engine.bridged(value));
    return engine.evaluate(script);
}

} // namespace quor::toolkit
