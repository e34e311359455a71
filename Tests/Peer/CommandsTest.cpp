// SPDX-License-Identifier: MIT
#include "Peer/PeerProgram.h"

#include <QJsonDocument>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quor::test;

namespace {

TEST(Commands, AreRefusedWithAReasonAndAnExitCode)
{
    ServingPeer peer;
    for (const auto& command : {u"add Design"_s, u"add design"_s, u"add Meeting"_s, u"start T1"_s})
        ASSERT_EQ(quorPeer(command).exitCode, 0);
    const std::tuple<QString, int, QString> cases[] = {{u"sing"_s, 2, u"\"sing\""_s},
        {u"list --jsn"_s, 2, u"jsn"_s}, {u"add"_s, 2, u"NAME"_s}, {u"add X "_s, 1, u"name"_s},
        {u"add X --color 12345g"_s, 1, u"\"12345g\""_s}, {u"start T9"_s, 1, u"no task \"T9\""_s},
        {u"start DESIGN"_s, 1, u"T1, T2"_s}, {u"start T1"_s, 1, u"already running"_s},
        {u"start T2 --ago inf"_s, 2, u"\"inf\""_s}, {u"stop Meeting"_s, 1, u"is not running"_s},
        {u"stop T1 --all"_s, 2, u"--all"_s}, {u"set singleTimer"_s, 1, u"KEY=VALUE"_s},
        {u"set singleTimer=true colour=1"_s, 1, u"\"colour\""_s},
        {u"set expectedWorkingTime=nan"_s, 1, u"\"nan\""_s},
        {u"kill-helper"_s, 1, u"helper is not running"_s}, {u"serve"_s, 1, u"already"_s}};
    for (const auto& [command, exitCode, reason] : cases) {
        const Result result = quorPeer(command);
        EXPECT_EQ(result.exitCode, exitCode) << command.toStdString();
        EXPECT_TRUE(result.errors.contains(reason)) << result.errors.toStdString();
    }
    const auto status = QJsonDocument::fromJson(quorPeer(u"status --json"_s).output.toUtf8());
    EXPECT_EQ(status["settings"_L1]["singleTimer"_L1], QJsonValue(false)) << "all or none";
    EXPECT_EQ(quorPeer(u"list"_s).output.count(u'\n'), 2) << "added nothing";
    quorPeer(u"start T2"_s);
    EXPECT_TRUE(quorPeer(u"stop"_s).errors.contains(u"2 timers"_s));
    EXPECT_EQ(quorPeer(u"stop --all"_s).exitCode, 0);
}

TEST(Commands, PrintFieldsThatScriptsCanCut)
{
    ServingPeer peer;
    EXPECT_EQ(quorPeer(u"add Web\tdesign\\\n2 --color #00bff9"_s).output, u"T1"_s);
    EXPECT_EQ(quorPeer(u"add -- --all Last"_s).output, u"T2\nT3"_s);
    EXPECT_EQ(quorPeer(u"list"_s).output,
        u"T1\t00BFF9\tidle\t00:00:00\tWeb\\tdesign\\\\\\n2\nT2\t-\tidle\t00:00:00\t--all\n"
        "T3\t-\tidle\t00:00:00\tLast"_s);
    quorPeer(u"start T2 --ago 90.5"_s);
    quorPeer(u"set nonWorkingTime=1.5"_s);
    const QStringList lines = quorPeer(u"status"_s).output.split(u'\n');
    EXPECT_TRUE(lines[0].startsWith(u"running\tT2\t"_s) && lines[0].contains(u"\t01:30:"_s));
    EXPECT_TRUE(lines.contains(u"setting\tnonWorkingTime\t1.5"_s));
}

TEST(Commands, NeedABusOrAServerButForHelp)
{
    EXPECT_TRUE(quorPeer(u"--help"_s).output.contains(u"  kill-helper"_s));
    EXPECT_TRUE(quorPeer(u"list"_s).errors.contains(u"quor-peer serve"_s));
    const QStringList noBus{u"DBUS_SESSION_BUS_ADDRESS="_s, u"XDG_RUNTIME_DIR=/no"_s};
    EXPECT_TRUE(quorPeer(u"serve"_s, noBus).errors.contains(u"no session bus"_s));
}

} // namespace
