// SPDX-License-Identifier: MIT
#include "Peer/PeerProgram.h"

#include <QJsonArray>
#include <QJsonObject>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quor::test;

namespace {

TEST(Commands, AreRefusedWithAReasonAndAnExitCode)
{
    ServingPeer peer;
    for (const auto& command : {u"add Design"_s, u"add design"_s, u"add Meeting"_s, u"start T1"_s})
        ASSERT_EQ(quorPeer(command).exitCode, 0);
    const struct {
        QString command;
        int exitCode;
        QString reason;
    } cases[] = {
        {u"sing"_s, 2, u"\"sing\""_s},
        {u"list --jsn"_s, 2, u"jsn"_s},
        {u"list more"_s, 2, u"\"more\""_s},
        {u"add"_s, 2, u"NAME"_s},
        {u"add "_s, 1, u"name"_s}, // an empty one
        {u"add X --color"_s, 2, u"color"_s},
        {u"add X --color "_s, 2, u"color"_s},
        {u"add X --color 12345g"_s, 1, u"\"12345g\""_s},
        {u"start T9"_s, 1, u"no task \"T9\""_s},
        {u"start DESIGN"_s, 1, u"T1, T2"_s},
        {u"start T1"_s, 1, u"runs already"_s},
        {u"start T2 --ago soon"_s, 2, u"\"soon\""_s},
        {u"start T2 --ago=-1"_s, 2, u"\"-1\""_s},
        {u"start T2 --ago inf"_s, 2, u"\"inf\""_s},
        {u"stop Meeting"_s, 1, u"does not run"_s},
        {u"stop T1 --all"_s, 2, u"--all"_s},
        {u"set singleTimer"_s, 1, u"KEY=VALUE"_s},
        {u"set singleTimer=true colour=1"_s, 1, u"\"colour\""_s},
        {u"set singleTimer=1"_s, 1, u"neither true nor false"_s},
        {u"set expectedWorkingTime=-1"_s, 1, u"\"-1\""_s},
        {u"set expectedWorkingTime=nan"_s, 1, u"\"nan\""_s},
        {u"open-menu"_s, 1, u"helper does not run"_s},
        {u"kill-helper"_s, 1, u"helper does not run"_s},
        {u"serve"_s, 1, u"already"_s},
    };
    for (const auto& each : cases) {
        const Result result = quorPeer(each.command);
        EXPECT_EQ(result.exitCode, each.exitCode) << each.command.toStdString();
        EXPECT_EQ(result.output, u""_s) << each.command.toStdString();
        EXPECT_TRUE(result.errors.contains(each.reason)) << result.errors.toStdString();
    }
    EXPECT_EQ(quorPeerJSON(u"list"_s).array().size(), 3);
    EXPECT_FALSE(quorPeerJSON(u"status"_s)["settings"_L1]["singleTimer"_L1].toBool()) << "all or none";

    quorPeer(u"start T2"_s);
    EXPECT_TRUE(quorPeer(u"stop"_s).errors.contains(u"2 timers"_s));
    EXPECT_EQ(quorPeer(u"stop --all"_s).exitCode, 0);
    EXPECT_TRUE(quorPeer(u"stop"_s).errors.contains(u"no timer runs"_s));
}

TEST(Commands, PrintFieldsThatScriptsCanCut)
{
    ServingPeer peer;
    EXPECT_EQ(quorPeer(u"add Web\tdesign\\\n2 --color #00bff9"_s).output, u"T1"_s);
    EXPECT_EQ(quorPeer(u"add -- --all"_s).output, u"T2"_s);
    EXPECT_EQ(quorPeer(u"list"_s).output,
        u"T1\t00BFF9\tidle\t00:00:00\tWeb\\tdesign\\\\\\n2\nT2\t-\tidle\t00:00:00\t--all"_s);
    quorPeer(u"start T2 --ago 90.5"_s);
    quorPeer(u"set nonWorkingTime=1.5"_s);
    const QStringList lines = quorPeer(u"status"_s).output.split(u'\n');
    const QStringList running = lines[0].split(u'\t');
    ASSERT_EQ(running.size(), 5);
    EXPECT_EQ(running[0] + running[1], u"runningT2"_s);
    EXPECT_TRUE(running[3].startsWith(u"01:30:"_s)) << running[3].toStdString();
    EXPECT_TRUE(lines[1].startsWith(u"today\t"_s));
    EXPECT_TRUE(lines.contains(u"setting\tnonWorkingTime\t1.5"_s));
}

TEST(Commands, TimersRunOnAfterAKill)
{
    ServingPeer peer;
    for (const auto& command : {u"add Design"_s, u"start T1"_s, u"set menuBarShowDailyTotal=true"_s})
        quorPeer(command);
    const auto before = quorPeerJSON(u"status"_s);
    peer.kill();
    peer.start();
    const auto after = quorPeerJSON(u"status"_s);
    ASSERT_TRUE(after["running"_L1][0].isObject());
    EXPECT_EQ(after["running"_L1][0]["start"_L1], before["running"_L1][0]["start"_L1]);
    EXPECT_EQ(after["settings"_L1], before["settings"_L1]);
}

TEST(Commands, NeedABusOrAServerButForHelp)
{
    EXPECT_TRUE(quorPeer(u"--help"_s).output.contains(u"  kill-helper"_s));
    EXPECT_TRUE(quorPeer(u"set --help"_s).output.contains(u"  singleTimer"_s));
    EXPECT_TRUE(quorPeer(u"list"_s).errors.contains(u"quor-peer serve"_s));
    for (const auto& command : {u"serve"_s, u"list"_s}) {
        const Result result = quorPeer(command, {u"DBUS_SESSION_BUS_ADDRESS="_s, u"XDG_RUNTIME_DIR=/no"_s});
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_TRUE(result.errors.contains(u"no session bus"_s)) << result.errors.toStdString();
    }
}

} // namespace
