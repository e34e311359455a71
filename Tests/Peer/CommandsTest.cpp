// SPDX-License-Identifier: MIT
#include "Peer/PeerProgram.h"

#include <QJsonArray>
#include <QJsonObject>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace quor::test;

namespace {

TEST(Commands, AreRefusedWithAReasonAndAnExitCode)
{
    ServingPeer peer;
    for (const auto& name : {u"Design"_s, u"design"_s, u"Meeting"_s})
        ASSERT_EQ(quorPeer({u"add"_s, name}).exitCode, 0);
    ASSERT_EQ(quorPeer({u"start"_s, u"T1"_s}).exitCode, 0);
    const struct {
        QStringList arguments;
        int exitCode;
        QString reason;
    } cases[] = {
        {{}, 2, u"no command"_s},
        {{u"sing"_s}, 2, u"\"sing\""_s},
        {{u"list"_s, u"--jsn"_s}, 2, u"jsn"_s},
        {{u"list"_s, u"more"_s}, 2, u"\"more\""_s},
        {{u"add"_s}, 2, u"NAME"_s},
        {{u"add"_s, u"  "_s}, 1, u"name"_s},
        {{u"add"_s, u"X"_s, u"--color"_s}, 2, u"color"_s},
        {{u"add"_s, u"X"_s, u"--color"_s, u""_s}, 2, u"color"_s},
        {{u"add"_s, u"X"_s, u"--color"_s, u"12345g"_s}, 1, u"\"12345g\""_s},
        {{u"add"_s, u"X"_s, u"--color"_s, u"1234567"_s}, 1, u"\"1234567\""_s},
        {{u"start"_s, u"T9"_s}, 1, u"no task \"T9\""_s},
        {{u"start"_s, u"DESIGN"_s}, 1, u"T1, T2"_s},
        {{u"start"_s, u"T1"_s}, 1, u"runs already"_s},
        {{u"start"_s, u"T2"_s, u"--ago"_s, u"soon"_s}, 2, u"\"soon\""_s},
        {{u"start"_s, u"T2"_s, u"--ago=-1"_s}, 2, u"\"-1\""_s},
        {{u"start"_s, u"T2"_s, u"--ago"_s, u"inf"_s}, 2, u"\"inf\""_s},
        {{u"stop"_s, u"Meeting"_s}, 1, u"does not run"_s},
        {{u"stop"_s, u"T1"_s, u"--all"_s}, 2, u"--all"_s},
        {{u"set"_s, u"singleTimer"_s}, 1, u"KEY=VALUE"_s},
        {{u"set"_s, u"singleTimer=true"_s, u"colour=1"_s}, 1, u"\"colour\""_s},
        {{u"set"_s, u"singleTimer=1"_s}, 1, u"neither true nor false"_s},
        {{u"set"_s, u"expectedWorkingTime=-1"_s}, 1, u"\"-1\""_s},
        {{u"set"_s, u"expectedWorkingTime=nan"_s}, 1, u"\"nan\""_s},
        {{u"open-menu"_s}, 1, u"helper does not run"_s},
        {{u"kill-helper"_s}, 1, u"helper does not run"_s},
        {{u"serve"_s}, 1, u"already"_s},
    };
    for (const auto& each : cases) {
        const Result result = quorPeer(each.arguments);
        const auto name = each.arguments.join(u' ').toStdString();
        EXPECT_EQ(result.exitCode, each.exitCode) << name;
        EXPECT_EQ(result.output, u""_s) << name;
        EXPECT_TRUE(result.errors.contains(each.reason)) << name << ": " << result.errors.toStdString();
    }
    EXPECT_EQ(quorPeerJSON({u"list"_s}).array().size(), 3);
    EXPECT_FALSE(quorPeerJSON({u"status"_s})["settings"_L1]["singleTimer"_L1].toBool()) << "all or none";

    ASSERT_EQ(quorPeer({u"start"_s, u"T2"_s}).exitCode, 0);
    EXPECT_TRUE(quorPeer({u"stop"_s}).errors.contains(u"2 timers"_s));
    EXPECT_EQ(quorPeer({u"stop"_s, u"--all"_s}).exitCode, 0);
    EXPECT_TRUE(quorPeer({u"stop"_s}).errors.contains(u"no timer runs"_s));
}

TEST(Commands, HelpIsThereWithoutAServer)
{
    const QString all = quorPeer({u"--help"_s}).output;
    for (const auto& name : {u"serve"_s, u"add"_s, u"list"_s, u"start"_s, u"stop"_s, u"status"_s, u"set"_s,
             u"open-menu"_s, u"kill-helper"_s}) {
        EXPECT_TRUE(all.contains(u"  "_s + name)) << name.toStdString();
        const Result help = quorPeer({name, u"--help"_s});
        EXPECT_EQ(help.exitCode, 0);
        EXPECT_TRUE(help.output.startsWith(u"Usage: quor-peer "_s + name));
    }
    const Result list = quorPeer({u"list"_s});
    EXPECT_EQ(list.exitCode, 1);
    EXPECT_TRUE(list.errors.contains(u"quor-peer serve"_s)) << list.errors.toStdString();
}

TEST(Commands, PrintFieldsThatScriptsCanCut)
{
    ServingPeer peer;
    EXPECT_EQ(quorPeer({u"add"_s, u" Web\tdesign\\\n2 "_s, u"--color"_s, u"#00bff9"_s}).output, u"T1"_s);
    EXPECT_EQ(quorPeer({u"add"_s, u"--"_s, u"--all"_s}).output, u"T2"_s);
    EXPECT_EQ(quorPeer({u"list"_s}).output,
        u"T1\t00BFF9\tidle\t00:00:00\tWeb\\tdesign\\\\\\n2\nT2\t-\tidle\t00:00:00\t--all"_s);
    ASSERT_EQ(quorPeer({u"start"_s, u"T2"_s, u"--ago"_s, u"90.5"_s}).exitCode, 0);
    ASSERT_EQ(quorPeer({u"set"_s, u"nonWorkingTime=1.5"_s}).exitCode, 0);
    const QStringList lines = quorPeer({u"status"_s}).output.split(u'\n');
    const QStringList running = lines[0].split(u'\t');
    ASSERT_EQ(running.size(), 5);
    EXPECT_EQ(running[0] + running[1], u"runningT2"_s);
    EXPECT_TRUE(running[3].startsWith(u"01:30:"_s)) << running[3].toStdString();
    EXPECT_TRUE(lines[1].startsWith(u"today\t"_s));
    EXPECT_TRUE(lines.contains(u"setting\tnonWorkingTime\t1.5"_s));
    const QJsonValue timer = quorPeerJSON({u"status"_s})["running"_L1][0];
    EXPECT_GE(timer["seconds"_L1].toDouble(), 90.5 * 60);
}

TEST(Commands, TimersRunOnAfterAKill)
{
    ServingPeer peer;
    quorPeer({u"add"_s, u"Design"_s});
    quorPeer({u"start"_s, u"T1"_s});
    quorPeer({u"set"_s, u"menuBarShowDailyTotal=true"_s});
    const auto before = quorPeerJSON({u"status"_s});
    peer.kill();
    peer.start();
    const auto after = quorPeerJSON({u"status"_s});
    ASSERT_TRUE(after["running"_L1][0].isObject());
    EXPECT_EQ(after["running"_L1][0]["start"_L1], before["running"_L1][0]["start"_L1]);
    EXPECT_EQ(after["settings"_L1], before["settings"_L1]);
}

TEST(Commands, WithoutABusNothingIsStarted)
{
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    const QByteArray runtime = qgetenv("XDG_RUNTIME_DIR");
    qunsetenv("DBUS_SESSION_BUS_ADDRESS");
    qputenv("XDG_RUNTIME_DIR", "/nonexistent");
    for (const auto& command : {u"serve"_s, u"list"_s}) {
        const Result result = quorPeer({command});
        EXPECT_EQ(result.exitCode, 1);
        EXPECT_TRUE(result.errors.contains(u"no session bus"_s)) << result.errors.toStdString();
    }
    qputenv("DBUS_SESSION_BUS_ADDRESS", address);
    qputenv("XDG_RUNTIME_DIR", runtime);
}

} // namespace
