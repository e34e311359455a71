// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/JavaScriptUtils.h"

#include "ToolKit/Identity/ApplicationVersion.h"
#include "ToolKit/JavaScript/PluginFolder.h"
#include "ToolKit/JavaScript/Requests/HTTPExchange.h"
#include "ToolKit/JavaScript/Utf8Text.h"
#include "ToolKit/JavaScript/UtilsTexts.h"
#include "ToolKit/Logging/Logger.h"

namespace quor::toolkit {

using namespace Qt::StringLiterals;

namespace {

QString queryOf(const ScriptValue::Map& parameters)
{
    QByteArray query;
    for (const auto& [name, value] : parameters) {
        if (!query.isEmpty())
            query += '&';
        query += QUrl::toPercentEncoding(name) + '=' + QUrl::toPercentEncoding(plainText(value));
    }
    return QString::fromLatin1(query);
}

QString loggedText(const JSValue& value)
{
    if (value.isArray()) {
        if (auto list = value.toArray())
            return plainText(*std::move(list));
    }
    if (value.isObject()) {
        if (auto map = value.toDictionary())
            return plainText(*std::move(map));
    }
    return value.toString().value_or(u"a value without a text"_s);
}

} // namespace

JavaScriptUtils::JavaScriptUtils(QString appName, QUrl baseURL, QHash<QString, QString> localization)
    : appName_(std::move(appName))
    , baseURL_(std::move(baseURL))
    , localization_(std::move(localization))
{
}

void JavaScriptUtils::removeFile(const QString& path) const
{
    PluginFolder(baseURL_).remove(path);
}

bool JavaScriptUtils::fileExists(const QString& path) const
{
    return PluginFolder(baseURL_).exists(path);
}

void JavaScriptUtils::writeToFile(const QString& path, const QString& contents) const
{
    if (contents.isValidUtf16())
        (void)PluginFolder(baseURL_).write(
            contents.toUtf8(), path); // scripts find a failure by reading the file
}

std::optional<QString> JavaScriptUtils::contentsOfFile(const QString& path) const
{
    const auto data = PluginFolder(baseURL_).contents(path);
    return data ? utf8Text(*data) : std::nullopt;
}

QString JavaScriptUtils::base64Encode(const QString& text) const
{
    return texts::base64Encode(text);
}

QString JavaScriptUtils::base64Decode(const QString& text) const
{
    return texts::base64Decode(text);
}

QString JavaScriptUtils::localize(const QString& key) const
{
    return localization_.value(key, key);
}

void JavaScriptUtils::log(const JSValue& value) const
{
    // Making the text can take long, so it is made only if it is logged.
    if (FileErrorLogger::isEnabled())
        Logger::log(loggedText(value), true);
}

QString JavaScriptUtils::markdownToHTML(const QString& text) const
{
    return texts::markdownToHTML(text);
}

ScriptValue::Map JavaScriptUtils::request(const QString& url, const QString& method, const Headers& headers,
    const std::optional<ScriptValue::Map>& parameters) const
{
    HTTPRequest request{QUrl(url, QUrl::StrictMode), method};
    if (!request.url.isValid() && !url.isEmpty())
        return {};
    const QString lowered = method.toLower();
    if (lowered == "get"_L1)
        request.url.setQuery(parameters && !parameters->empty() ? queryOf(*parameters) : QString());
    else if (lowered == "post"_L1 && parameters)
        request.body = jsonText(*parameters).value_or(QByteArray());
    request.setHeader(u"Cache-Control"_s, u"no-cache"_s);
    request.setHeader(u"Content-Type"_s, u"application/json; charset=utf-8"_s);
    request.setHeader(u"Accept"_s, u"application/json"_s);
    for (const auto& [name, value] : headers)
        request.setHeader(name, value);
    request.setHeader(u"User-Agent"_s, appName_ + u'/' + shortVersion() + u" JSPlugin/1.2"_s);
    request.responseLimit = responseLimit_;

    const HTTPResponse response = HTTPExchange(std::move(request)).perform();
    if (!response.error.isEmpty() && response.statusCode != 0)
        Logger::log(response.error, true);
    ScriptValue::Map fields;
    for (const auto& [name, value] : response.headers)
        fields.emplace(name, value);
    return {{u"statusCode"_s, response.statusCode}, {u"result"_s, response.text()},
        {u"headers"_s, std::move(fields)}};
}

} // namespace quor::toolkit
