// SPDX-License-Identifier: MIT
#include "Peer/CommandLine/ClientCommands.h"
#include "Peer/CommandLine/Command.h"
#include "Peer/CommandLine/Serve.h"
#include "Peer/Model/Settings.h"

using namespace Qt::StringLiterals;

namespace quor::peer {

namespace {

const auto taskDetails = "TASK is a task's identifier, or a name that only one task has; differences in\n"
                         "case and accents are ignored unless they distinguish tasks.\n"_L1;

QCommandLineOption agoOption()
{
    return {u"ago"_s, u"Use the time this many minutes ago; fractions are allowed."_s, u"MINUTES"_s};
}

QCommandLineOption jsonOption()
{
    return {u"json"_s, u"Print JSON; durations are in seconds, moments in seconds since 1970."_s};
}

QString settingDetails()
{
    QString text = u"If one is refused, none is set. Durations are in seconds. The keys:\n"_s;
    const Settings defaults;
    for (const SettingField& field : settingFields()) {
        const QString value = std::holds_alternative<bool Settings::*>(field.member)
            ? (defaults.*std::get<bool Settings::*>(field.member) ? u"true"_s : u"false"_s)
            : QString::number(defaults.*std::get<double Settings::*>(field.member));
        text += u"  %1  %2 (initially %3)\n"_s.arg(QString(field.key), -23).arg(QString(field.help), value);
    }
    return text;
}

std::vector<Command> makeCommands()
{
    return {
        {"serve"_L1, ""_L1, 0, 0, "Run as the main application, until asked to quit"_L1,
            u"Owns com.quor-app.Quor3-macOS on the session bus, keeps the data in\n"
            "$XDG_DATA_HOME/com.quor-app.Quor3-macOS, publishes what the helper shows and carries out\n"
            "its requests. A second one on the same bus fails. Starting a timer leaves the others running,\n"
            "unless the setting singleTimer is true.\n"_s,
            {}, &serve},
        {"add"_L1, "NAME..."_L1, 1, 100'000, "Add a task for each name and print its identifier"_L1, {},
            {{u"color"_s, u"The colour of the tasks, six hexadecimal digits."_s, u"RRGGBB"_s}}, &addTasks},
        {"list"_L1, ""_L1, 0, 0, "Print the tasks"_L1,
            u"A line for each task, its fields separated by tabs: identifier, colour or \"-\", \"running\"\n"
            "or \"idle\", today's total as HH:MM:SS, name. In names, tab, line feed, carriage return and\n"
            "backslash are written as \\t, \\n, \\r and \\\\.\n"_s,
            {jsonOption()}, &listTasks},
        {"start"_L1, "TASK"_L1, 1, 1, "Start a timer"_L1, taskDetails, {agoOption()}, &startTimer},
        {"stop"_L1, "[TASK]"_L1, 0, 1, "Stop a timer; without TASK, the only one that runs"_L1,
            taskDetails + "The end of a timer is never before its start.\n"_L1,
            {agoOption(), {u"all"_s, u"Stop all timers."_s}}, &stopTimer},
        {"status"_L1, ""_L1, 0, 0, "Print the running timers, today's total and the settings"_L1,
            u"Lines of fields separated by tabs. For each running timer: \"running\", identifier, start in\n"
            "ISO 8601, running time as HH:MM:SS, name, written as in \"list\". Then \"today\" and today's\n"
            "total, and for each setting \"setting\", key, value.\n"_s,
            {jsonOption()}, &printStatus},
        {"set"_L1, "KEY=VALUE..."_L1, 1, 1000, "Change settings"_L1, settingDetails(), {}, &changeSettings},
        {"open-menu"_L1, ""_L1, 0, 0, "Ask the helper to open its menu, or to close it"_L1, {}, {},
            &openMenu},
        {"kill-helper"_L1, ""_L1, 0, 0, "Ask the helper to quit"_L1, {}, {}, &killHelper},
    };
}

} // namespace

const std::vector<Command>& commands()
{
    static const std::vector<Command> all = makeCommands();
    return all;
}

} // namespace quor::peer
