// SPDX-License-Identifier: MIT
#include "Platform/Linux/Bus/SessionBus.h"

#include "Platform/Linux/Bus/DBusWorkspace.h"
#include "Support/WaitFor.h"

#include <QFile>
#include <QTemporaryDir>

#include <gmock/gmock.h>

#include <memory>

using namespace Qt::StringLiterals;
using namespace quor::platform;
using Claim = SessionBus::Claim;

TEST(SessionBusTest, TakesTheAddressFromTheEnvironmentButNoneThatStartsABus)
{
    const QTemporaryDir runtime;
    QFile socket(runtime.filePath(u"bus"_s));
    ASSERT_TRUE(socket.open(QIODevice::WriteOnly));
    const std::tuple<QByteArray, QByteArray, QString> cases[] = {
        {"unix:path=/run/a,guid=1", runtime.path().toUtf8(), u"unix:path=/run/a,guid=1"_s},
        {"autolaunch:", runtime.path().toUtf8(), u"unix:path="_s + socket.fileName()},
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
    EXPECT_EQ(first->claim(name), Claim::claimed);
    EXPECT_EQ(first->claim(name), Claim::claimed);
    EXPECT_EQ(second.claim(name), Claim::taken);
    EXPECT_EQ(second.claim(u"not a name"_s), Claim::failed);
    EXPECT_EQ(isApplicationRunning(workspace, name), true);
    EXPECT_EQ(isApplicationRunning(workspace, second.connection().baseService()), false);

    first.reset();
    EXPECT_TRUE(quor::test::waitFor([&] { return isApplicationRunning(workspace, name) == false; }));
    EXPECT_EQ(second.claim(name), Claim::claimed);
}
