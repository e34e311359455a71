// SPDX-License-Identifier: MIT
#include "Peer/CommandLine/Program.h"

#include "Peer/CommandLine/Command.h"
#include "Peer/CommandLine/Output.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor::peer {

namespace {

const QCommandLineOption helpOption({u"h"_s, u"help"_s}, u"Print this help."_s);

QString optionText(const QCommandLineOption& option)
{
    QStringList names;
    for (const QString& name : option.names())
        names.append((name.size() == 1 ? u"-"_s : u"--"_s) + name);
    const QString value = option.valueName().isEmpty() ? QString() : u' ' + option.valueName();
    return u"  %1  %2\n"_s.arg(names.join(u", "_s) + value, -15).arg(option.description());
}

QString helpText(const Command& command)
{
    QString usage = u"Usage: quor-peer "_s + command.name;
    QString options = u"\nOptions:\n"_s;
    for (const QCommandLineOption& option : command.options)
        options += optionText(option);
    options += optionText(helpOption);
    if (!command.options.isEmpty())
        usage += " [OPTIONS]"_L1;
    if (!command.operands.isEmpty())
        usage += u' ' + command.operands;
    const QString details = command.details.isEmpty() ? QString() : u'\n' + command.details;
    return usage + "\n\n"_L1 + command.summary + ".\n"_L1 + details + options.chopped(1);
}

QString helpText()
{
    QString text = u"Usage: quor-peer COMMAND [OPTIONS] [OPERANDS]\n\n"
                   "A small time tracker: the main application that the menu-bar helper works for.\n\n"
                   "Commands:\n"_s;
    for (const Command& command : commands()) {
        const QString synopsis = command.name + u' ' + command.operands;
        text += u"  %1  %2\n"_s.arg(synopsis, -18).arg(QString(command.summary));
    }
    return text
        + "\n\"quor-peer COMMAND --help\" prints more about a command. All but serve call the process that\n"
          "serves on this session bus. The exit code is 0 on success, 1 if the command could not be carried\n"
          "out and 2 if the command line was wrong; the reason is on standard error."_L1;
}

int misuse(const QString& problem, const QString& helpFor)
{
    printError(problem);
    printError(u"try \"quor-peer %1--help\""_s.arg(helpFor));
    return misused;
}

int runCommand(const Command& command, const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.addOption(helpOption);
    parser.addOptions(command.options);
    const QString helpFor = command.name + u' ';
    if (!parser.parse(arguments))
        return misuse(u"%1: %2"_s.arg(QString(command.name), parser.errorText()), helpFor);
    if (parser.isSet(helpOption)) {
        print(helpText(command));
        return succeeded;
    }
    const QStringList operands = parser.positionalArguments();
    if (operands.size() < command.fewestOperands)
        return misuse(u"%1 needs %2"_s.arg(QString(command.name), QString(command.operands)), helpFor);
    if (operands.size() > command.mostOperands)
        return misuse(
            u"%1: unexpected operand \"%2\""_s.arg(QString(command.name), operands[command.mostOperands]),
            helpFor);
    return command.run(parser, operands);
}

} // namespace

int runProgram(const QStringList& arguments)
{
    const QString name = arguments.value(1);
    if (name == "-h"_L1 || name == "--help"_L1) {
        print(helpText());
        return succeeded;
    }
    if (name.isEmpty())
        return misuse(u"no command given"_s, {});
    const auto command = std::find_if(commands().begin(), commands().end(),
        [&](const Command& candidate) { return candidate.name == name; });
    if (command == commands().end())
        return misuse(u"there is no command \"%1\""_s.arg(name), {});
    return runCommand(*command, arguments.mid(1));
}

} // namespace quor::peer
