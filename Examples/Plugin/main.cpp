// SPDX-License-Identifier: MIT
// Runs a plug-in, for authors of plug-ins:
//     quor-plugin Examples/Plugin/greeting --parameters '{"name": "Ada"}'
// The folder contains plugin.js and optionally texts.json, a table of translated texts. The result goes to
// standard output, the log and uncaught exceptions go to standard error. Exits with 0; with 1 if the script
// threw or a file could not be read or the output not written; with 2 if the arguments are wrong.
#include <ToolKit/JavaScript/JavaScriptPlugin.h>
#include <ToolKit/Logging/FileErrorLogger.h>

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <QTextStream>

#include <cmath>
#include <cstdio>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;

namespace {

constexpr int failed = 1;
constexpr int misused = 2;

int complain(int code, const QString& text)
{
    QTextStream(stderr) << "quor-plugin: " << text << '\n';
    return code;
}

ScriptValue scriptValue(const QJsonValue& json)
{
    switch (json.type()) {
    case QJsonValue::Bool:
        return json.toBool();
    case QJsonValue::Double:
        return json.toDouble();
    case QJsonValue::String:
        return json.toString();
    case QJsonValue::Array: {
        ScriptValue::List list;
        for (const auto& element : json.toArray())
            list.push_back(scriptValue(element));
        return list;
    }
    case QJsonValue::Object: {
        ScriptValue::Map map;
        const QJsonObject object = json.toObject();
        for (auto member = object.begin(); member != object.end(); ++member)
            map.emplace(member.key(), scriptValue(member.value()));
        return map;
    }
    default:
        return nullptr;
    }
}

std::optional<QJsonObject> jsonObject(const QByteArray& text, const QString& name)
{
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(text, &error);
    if (document.isObject())
        return document.object();
    const bool isJSON = error.error == QJsonParseError::NoError;
    complain(failed,
        name
            + (isJSON ? u" is not a JSON object"_s
                      : u": "_s + error.errorString() + u" at byte "_s + QString::number(error.offset)));
    return std::nullopt;
}

std::optional<QByteArray> fileContents(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? std::optional(file.readAll()) : std::nullopt;
}

void printLog(const QString& directory)
{
    QTextStream err(stderr);
    for (const QString& name : QDir(directory).entryList(QDir::Files, QDir::Name))
        err << QString::fromUtf8(fileContents(QDir(directory).filePath(name)).value_or(QByteArray()));
}

// An object without a useful text is shown as JSON of its members.
QString exceptionText(const JSValue& exception)
{
    const QString text = exception.toString().value_or(u"an exception without a text"_s);
    const auto members = text == u"[object Object]"_s ? exception.toScriptValue() : std::nullopt;
    return members ? plainText(*members) : text;
}

void printException(const JSValue& exception)
{
    QTextStream err(stderr);
    err << "plugin.js:";
    if (exception.line())
        err << *exception.line() << ':' << exception.column().value_or(1) << ':';
    err << ' ' << exceptionText(exception) << '\n';
}

// The value as JSON if JSON can represent it, else as the script's String(value).
std::optional<QString> resultText(const JSValue& result)
{
    if (!result.isString()) {
        const auto value = result.toScriptValue();
        if (value && (!value->as<std::monostate>() || result.isUndefined()))
            return plainText(*value);
    }
    return result.toString();
}

int run(JavaScriptPlugin plugin, const QString& script, const ScriptValue::Map& parameters)
{
    bool hasThrown = false;
    plugin.exceptionHandler = [&hasThrown](const JSValue& exception) {
        hasThrown = true;
        printException(exception);
    };
    const QTemporaryDir logs;
    FileErrorLogger::setup(logs.path());
    FileErrorLogger::setEnabled(true);
    const auto result = plugin.execute(script, parameters);
    const auto text = result ? resultText(*result) : std::nullopt; // this can run the script's code, too
    printLog(logs.path());
    if (result && !text && !hasThrown)
        return complain(failed, u"the result cannot be converted to a text"_s);
    if (text) {
        QTextStream out(stdout);
        out << *text << '\n';
        out.flush();
        if (out.status() != QTextStream::Ok || std::fflush(stdout) != 0)
            return complain(failed, u"the result cannot be written"_s);
    }
    return text && !hasThrown ? 0 : failed;
}

std::optional<QHash<QString, QString>> textsOf(const QDir& folder)
{
    QHash<QString, QString> texts;
    const auto file = fileContents(folder.filePath(u"texts.json"_s));
    if (!file)
        return texts;
    const auto table = jsonObject(*file, u"texts.json"_s);
    if (!table)
        return std::nullopt;
    for (auto text = table->begin(); text != table->end(); ++text) {
        if (!text->isString()) {
            complain(failed, u"texts.json: "_s + text.key() + u" is not a text"_s);
            return std::nullopt;
        }
        texts.insert(text.key(), text->toString());
    }
    return texts;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"Runs the plug-in in a folder. Its result goes to standard output, its log and uncaught "
        "exceptions go to standard error. Exits with 0; with 1 if the script threw, a file could not be "
        "read or the output could not be written; with 2 if the arguments are wrong.\n\n"
        "    quor-plugin my-plugin --parameters '{\"name\": \"Ada\"}'"_s);
    parser.addPositionalArgument(u"FOLDER"_s, u"Contains plugin.js and optionally texts.json."_s);
    const QCommandLineOption parametersOption(u"parameters"_s,
        u"A JSON object, or @ and the name of a file with one; each member becomes a global."_s, u"JSON"_s,
        u"{}"_s);
    const QCommandLineOption timeOption(u"time-limit"_s,
        u"Limit of processor time for the script, which then also has a limit of 512 MiB of memory."_s,
        u"SECONDS"_s);
    parser.addOptions({parametersOption, timeOption});
    const QCommandLineOption helpOption({u"h"_s, u"help"_s}, u"Shows this help."_s);
    parser.addOption(helpOption);
    if (!parser.parse(application.arguments()))
        return complain(misused, parser.errorText());
    if (parser.isSet(helpOption))
        parser.showHelp();
    if (parser.positionalArguments().size() != 1)
        return complain(misused, u"give exactly one folder; see --help"_s);
    const QString given = parser.value(parametersOption);
    const auto json = given.startsWith(u'@') ? fileContents(given.sliced(1)) : given.toUtf8();
    if (!json)
        return complain(failed, u"cannot read "_s + given.sliced(1));
    const auto parameters = jsonObject(*json, u"--parameters"_s);
    if (!parameters)
        return misused;

    const QDir folder(parser.positionalArguments().constFirst());
    const auto script = fileContents(folder.filePath(u"plugin.js"_s));
    if (!script)
        return complain(failed, u"cannot read "_s + folder.filePath(u"plugin.js"_s));
    const auto texts = textsOf(folder);
    if (!texts)
        return failed;
    JavaScriptPlugin plugin{QUrl::fromLocalFile(folder.absolutePath()), *texts};
    if (parser.isSet(timeOption)) {
        const double seconds = parser.value(timeOption).toDouble();
        constexpr double day = 86400;
        if (!(seconds > 0 && seconds <= day))
            return complain(misused, u"--time-limit must be a number of seconds, at most 86400"_s);
        plugin.timeLimit = std::chrono::milliseconds(std::llround(std::ceil(seconds * 1000)));
    }
    return run(plugin, QString::fromUtf8(*script), *scriptValue(*parameters).as<ScriptValue::Map>());
}
