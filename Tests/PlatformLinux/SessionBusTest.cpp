// SPDX-License-Identifier: MIT
#include "Platform/Linux/SessionBus.h"

#include "Platform/Linux/DBusNotificationCenter.h"
#include "Platform/Linux/DBusWorkspace.h"
#include "Support/WaitFor.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <memory>

using namespace Qt::StringLiterals;
using namespace quor::platform;
using Claim = SessionBus::Claim;

namespace {

void expectNoConnection(SessionBus& bus)
{
    EXPECT_FALSE(bus.isConnected());
    EXPECT_EQ(bus.claim(u"com.quor-app.None"_s), Claim::failed);
    EXPECT_TRUE(DBusWorkspace(bus).runningApplications().empty());
    DBusNotificationCenter center(bus);
    center.post(u"a"_s);
    center.removeObserver(center.addObserver(u"a"_s, {}));
}

} // namespace

TEST(SessionBusTest, FindsTheBusByTheEnvironmentAndLaunchesNone)
{
    const QTemporaryDir runtime;
    QFile socket(runtime.filePath(u"bus"_s));
    ASSERT_TRUE(socket.open(QIODevice::WriteOnly));
    const QString bySocket = u"unix:path="_s + socket.fileName();

    const struct {
        QByteArray address, runtimeFolder;
        QString expected;
    } cases[]{
        {"unix:path=/run/a,guid=1", runtime.path().toUtf8(), u"unix:path=/run/a,guid=1"_s},
        {"autolaunch:", runtime.path().toUtf8(), bySocket},
        {"autolaunch:scope=user", "", u""_s},
        {"", "/nowhere", u""_s},
    };
    const auto ownAddress = qgetenv("DBUS_SESSION_BUS_ADDRESS"), ownFolder = qgetenv("XDG_RUNTIME_DIR");
    for (const auto& [address, runtimeFolder, expected] : cases) {
        qputenv("DBUS_SESSION_BUS_ADDRESS", address);
        qputenv("XDG_RUNTIME_DIR", runtimeFolder);
        EXPECT_EQ(SessionBus::sessionAddress(), expected) << address.constData();
    }
    qputenv("DBUS_SESSION_BUS_ADDRESS", ownAddress);
    qputenv("XDG_RUNTIME_DIR", ownFolder);
}

TEST(SessionBusTest, ANameHasOneOwnerAndIsARunningApplication)
{
    const auto name = u"com.quor-app.Quor3-MenubarHelper"_s;
    auto first = std::make_unique<SessionBus>();
    SessionBus second;
    const DBusWorkspace workspace(second);
    EXPECT_FALSE(isApplicationRunning(workspace, name));

    EXPECT_EQ(first->claim(name), Claim::claimed);
    EXPECT_EQ(first->claim(name), Claim::claimed);
    EXPECT_EQ(second.claim(name), Claim::taken);
    EXPECT_EQ(second.claim(u"not a name"_s), Claim::failed);
    EXPECT_TRUE(isApplicationRunning(workspace, name));
    EXPECT_FALSE(isApplicationRunning(workspace, second.connection().baseService()));

    first.reset();
    EXPECT_TRUE(quor::test::waitFor([&] { return !isApplicationRunning(workspace, name); }));
    EXPECT_EQ(second.claim(name), Claim::claimed);
}

TEST(SessionBusTest, TellsWhenTheBusGoesAndDoesNothingWithoutOne)
{
    QProcess daemon;
    daemon.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
    ASSERT_TRUE(daemon.waitForReadyRead());
    SessionBus bus(QString::fromUtf8(daemon.readLine().trimmed()));
    int told = 0;
    QObject::connect(&bus, &SessionBus::disconnected, [&] { ++told; });
    daemon.kill();
    EXPECT_TRUE(quor::test::waitFor([&] { return told == 1; }));
    expectNoConnection(bus);
    daemon.waitForFinished();
    for (const auto& address : {u""_s, u"unix:path=/nowhere/bus"_s, u"nonsense"_s}) {
        SessionBus none(address);
        expectNoConnection(none);
    }
}
