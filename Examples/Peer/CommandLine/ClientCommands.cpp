// SPDX-License-Identifier: MIT
#include "Peer/CommandLine/ClientCommands.h"

#include "Peer/CommandLine/Output.h"
#include "Peer/CommandLine/PeerClient.h"
#include "Peer/CommandLine/PlainText.h"

#include <QCommandLineParser>
#include <QJsonDocument>

#include <cmath>
#include <optional>

using namespace Qt::StringLiterals;

namespace quor::peer {

namespace {

/// Calls a method of the serving process. Prints the error, or the result as `format` writes it. Returns the
/// exit code.
int ask(
    const QString& method, const QVariantList& arguments, QString (*format)(const QString& text) = nullptr)
{
    const PeerClient::Reply reply = PeerClient().call(method, arguments);
    if (!reply.error.isEmpty()) {
        printError(reply.error);
        return failed;
    }
    if (const QString text = format ? format(reply.text) : reply.text; !text.isEmpty())
        print(text);
    return succeeded;
}

/// The value of `--ago` in seconds, 0 if it is not given. Prints an error and returns `nullopt` if it is not
/// a valid number.
std::optional<double> secondsAgo(const QCommandLineParser& options)
{
    if (!options.isSet(u"ago"_s))
        return 0;
    const QString text = options.value(u"ago"_s);
    bool isNumber = false;
    const double minutes = text.toDouble(&isNumber);
    if (isNumber && std::isfinite(minutes) && minutes >= 0)
        return minutes * 60;
    printError(u"\"%1\" is not a number of minutes, 0 or more"_s.arg(text));
    return std::nullopt;
}

QString plainTasks(const QString& json)
{
    return plainText(QJsonDocument::fromJson(json.toUtf8()).array());
}

QString plainStatus(const QString& json)
{
    return plainText(QJsonDocument::fromJson(json.toUtf8()).object());
}

} // namespace

int addTasks(const QCommandLineParser& options, const QStringList& operands)
{
    if (options.isSet(u"color"_s) && options.value(u"color"_s).isEmpty()) {
        printError(u"--color needs six hexadecimal digits"_s);
        return misused;
    }
    return ask(u"add"_s, {operands, options.value(u"color"_s)});
}

int listTasks(const QCommandLineParser& options, const QStringList&)
{
    return ask(u"list"_s, {}, options.isSet(u"json"_s) ? nullptr : &plainTasks);
}

int startTimer(const QCommandLineParser& options, const QStringList& operands)
{
    const auto ago = secondsAgo(options);
    return ago ? ask(u"start"_s, {operands.front(), *ago}) : misused;
}

int stopTimer(const QCommandLineParser& options, const QStringList& operands)
{
    const auto ago = secondsAgo(options);
    if (!ago)
        return misused;
    if (!options.isSet(u"all"_s))
        return ask(u"stop"_s, {operands.value(0), *ago});
    if (operands.isEmpty())
        return ask(u"stopAll"_s, {*ago});
    printError(u"stop accepts either TASK or --all, not both"_s);
    return misused;
}

int printStatus(const QCommandLineParser& options, const QStringList&)
{
    return ask(u"status"_s, {}, options.isSet(u"json"_s) ? nullptr : &plainStatus);
}

int changeSettings(const QCommandLineParser&, const QStringList& operands)
{
    return ask(u"set"_s, {operands});
}

int openMenu(const QCommandLineParser&, const QStringList&)
{
    return ask(u"openMenu"_s, {});
}

int killHelper(const QCommandLineParser&, const QStringList&)
{
    return ask(u"killHelper"_s, {});
}

} // namespace quor::peer
