// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/Hosting/ForwardedUtils.h"

#include "ToolKit/JavaScript/UtilsTexts.h"

namespace quor::toolkit {

ForwardedUtils::ForwardedUtils(ScriptChannel& channel, ValueTable& values, ScriptValue::Map localization)
    : channel_(channel)
    , values_(values)
    , localization_(std::move(localization))
{
}

ScriptValue ForwardedUtils::ask(ScriptOperation operation, ScriptValue::List values) const
{
    return channel_.request(operation, std::move(values)).value_or(ScriptValue());
}

void ForwardedUtils::removeFile(const QString& path) const
{
    ask(ScriptOperation::removeFile, {path});
}

bool ForwardedUtils::fileExists(const QString& path) const
{
    const ScriptValue exists = ask(ScriptOperation::fileExists, {path});
    return exists.as<bool>() && *exists.as<bool>();
}

void ForwardedUtils::writeToFile(const QString& path, const QString& contents) const
{
    ask(ScriptOperation::writeToFile, {path, contents});
}

std::optional<QString> ForwardedUtils::contentsOfFile(const QString& path) const
{
    const ScriptValue contents = ask(ScriptOperation::contentsOfFile, {path});
    const auto* text = contents.as<ScriptValue::List>();
    return text && !text->empty() ? std::optional(textAt(*text, 0)) : std::nullopt;
}

QString ForwardedUtils::base64Encode(const QString& text) const
{
    return texts::base64Encode(text);
}

QString ForwardedUtils::base64Decode(const QString& text) const
{
    return texts::base64Decode(text);
}

QString ForwardedUtils::localize(const QString& key) const
{
    const auto found = localization_.find(key);
    const auto* text = found == localization_.end() ? nullptr : found->second.as<QString>();
    return text ? *text : key;
}

void ForwardedUtils::log(const JSValue& value) const
{
    ask(ScriptOperation::log, {values_.add(value)});
}

QString ForwardedUtils::markdownToHTML(const QString& text) const
{
    return texts::markdownToHTML(text);
}

ScriptValue::Map ForwardedUtils::request(const QString& url, const QString& method, const Headers& headers,
    const std::optional<ScriptValue::Map>& parameters) const
{
    ScriptValue::Map fields;
    for (const auto& [name, value] : headers)
        fields.emplace(name, value);
    return mapAt(
        {ask(ScriptOperation::request, {url, method, std::move(fields), optionalValue(parameters)})}, 0);
}

} // namespace quor::toolkit
