// SPDX-License-Identifier: MIT
// Runs a plug-in, for those who write one:
//     quor-plugin Examples/Plugin/greeting --parameters '{"name": "Ada"}'
// Its folder holds plugin.js and, if it likes, texts.json, a table of translated texts. The result goes to
// standard output, the log and what the script throws to standard error.
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
        for (const QJsonValue& element : json.toArray())
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

std::optional<QJsonObject> jsonObject(const QByteArray& text)
{
    const QJsonDocument document = QJsonDocument::fromJson(text);
    return document.isObject() ? std::optional(document.object()) : std::nullopt;
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

void printException(const JSValue& exception)
{
    QTextStream err(stderr);
    err << "plugin.js:";
    if (exception.line())
        err << *exception.line() << ':' << exception.column().value_or(1) << ':';
    err << ' ' << exception.toString().value_or(u"an exception without a text"_s) << '\n';
}

int run(const JavaScriptPlugin& plugin, const QString& script, const ScriptValue::Map& parameters)
{
    const QTemporaryDir logs;
    FileErrorLogger::setup(logs.path());
    FileErrorLogger::setEnabled(true);
    const auto result = plugin.execute(script, parameters);
    printLog(logs.path());
    if (!result)
        return failed;
    const auto value = result->toScriptValue();
    QTextStream(stdout) << (value ? plainText(*value) : result->toString().value_or(u"no text"_s)) << '\n';
    return 0;
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Runs the plug-in of a folder and prints its result and its log."_s);
    parser.addPositionalArgument(u"FOLDER"_s, u"Holds plugin.js and perhaps texts.json."_s);
    const QCommandLineOption parametersOption(
        u"parameters"_s, u"An object; each member becomes a global."_s, u"JSON"_s, u"{}"_s);
    const QCommandLineOption timeOption(
        u"time-limit"_s, u"Processor time that the script may take."_s, u"SECONDS"_s);
    parser.addOptions({parametersOption, timeOption});
    parser.addHelpOption();
    parser.process(application);
    if (parser.positionalArguments().size() != 1)
        return complain(misused, u"one folder is wanted; see --help"_s);
    const auto parameters = jsonObject(parser.value(parametersOption).toUtf8());
    if (!parameters)
        return complain(misused, u"--parameters wants a JSON object"_s);

    const QDir folder(parser.positionalArguments().constFirst());
    const auto script = fileContents(folder.filePath(u"plugin.js"_s));
    if (!script)
        return complain(failed, u"there is no plugin.js in "_s + folder.path());
    JavaScriptPlugin plugin{QUrl::fromLocalFile(folder.absolutePath()), {}, printException};
    if (const auto texts = fileContents(folder.filePath(u"texts.json"_s))) {
        const auto table = jsonObject(*texts);
        if (!table)
            return complain(failed, u"texts.json is no JSON object"_s);
        for (auto text = table->begin(); text != table->end(); ++text)
            plugin.localization.insert(text.key(), text.value().toString());
    }
    if (parser.isSet(timeOption)) {
        const double seconds = parser.value(timeOption).toDouble();
        constexpr double day = 86400;
        if (!(seconds > 0 && seconds <= day))
            return complain(misused, u"--time-limit wants seconds"_s);
        plugin.timeLimit = std::chrono::milliseconds(std::llround(std::ceil(seconds * 1000)));
    }
    return run(plugin, QString::fromUtf8(*script), *scriptValue(*parameters).as<ScriptValue::Map>());
}
