// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/UtilsObject.h"

#include "ToolKit/JavaScript/ScriptBridge.h"

namespace quor::toolkit {

using namespace Qt::StringLiterals;

namespace {

using Arguments = std::span<const JSValueRef>;
using Utils = std::shared_ptr<const JavaScriptUtils>;

JSValueRef argument(const ScriptEngine& engine, Arguments arguments, size_t index)
{
    return index < arguments.size() ? arguments[index] : JSValueMakeUndefined(engine.context());
}

std::optional<QString> text(const ScriptEngine& engine, Arguments arguments, size_t index)
{
    return script::toText(engine.context(), argument(engine, arguments, index));
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

JavaScriptUtils::Headers headerFields(const ScriptEngine& engine, JSValueRef value)
{
    JavaScriptUtils::Headers fields;
    const auto members = script::toMap(engine.context(), value);
    if (!members)
        return fields;
    for (const auto& [name, member] : *members) {
        if (!member.as<std::monostate>() && !member.as<std::nullptr_t>())
            fields.emplace(name, plainText(member));
    }
    return fields;
}

JSValueRef request(const JavaScriptUtils& utils, ScriptEngine& engine, Arguments arguments)
{
    const auto url = text(engine, arguments, 0);
    const auto method = text(engine, arguments, 1);
    std::optional<HTTPResponse> response;
    if (url && method)
        response = utils.request(*url, *method, headerFields(engine, argument(engine, arguments, 2)),
            script::toMap(engine.context(), argument(engine, arguments, 3)));
    if (!response)
        return engine.bridged(ScriptValue::Map());
    ScriptValue::Map headers;
    for (const auto& [name, value] : response->headers)
        headers.emplace(name, value);
    return engine.bridged(ScriptValue::Map{{u"statusCode"_s, response->statusCode},
        {u"result"_s, response->text()}, {u"headers"_s, std::move(headers)}});
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

} // namespace

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
        utils->log(JSValue(running.shared_from_this(), argument(running, arguments, 0)));
        return nullptr;
    });
    add(u"markdownToHTML"_s,
        textFunction([utils](const QString& text) { return utils->markdownToHTML(text); }));
    add(u"request"_s,
        [utils](ScriptEngine& running, Arguments arguments) { return request(*utils, running, arguments); });
}

} // namespace quor::toolkit
