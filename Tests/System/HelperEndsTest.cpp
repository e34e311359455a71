// SPDX-License-Identifier: MIT
// When the helper ends or refuses to start.
#include "Support/TemporaryDataHome.h"
#include "Support/WaitFor.h"
#include "System/Bar.h"
#include "System/Program.h"
#include "System/Publisher.h"

#include <QFile>

#include <gtest/gtest.h>

#include <memory>

using namespace quor;
using namespace quor::test;
using namespace Qt::StringLiterals;

namespace {

const QString helperName = u"quor-menubar-helper"_s;

class HelperEnds : public testing::Test {
protected:
    void startHelper(const Program::Environment& changes = {})
    {
        helper = std::make_unique<Program>(helperName, QStringList(), changes);
        ASSERT_TRUE(waitFor([this] { return publisher.posts > 0; })) << qPrintable(helper->errors());
    }

    TemporaryDataHome home;
    Publisher publisher;
    std::unique_ptr<Program> helper;
};

TEST_F(HelperEnds, DoesNotBeginWithoutABusADisplayOrASecondTime)
{
    startHelper();
    const std::tuple<const char*, Program::Environment, int, const char*> beginnings[]{
        {"second helper", {}, 0, "running"},
        {"no bus", {{u"DBUS_SESSION_BUS_ADDRESS"_s, u""_s}, {u"XDG_RUNTIME_DIR"_s, u"/nonexistent"_s}}, 1,
            "bus"},
        {"a bus that is not there", {{u"DBUS_SESSION_BUS_ADDRESS"_s, u"unix:path=/nonexistent/bus"_s}}, 1,
            "bus"},
        {"a display that is not there", {{u"DISPLAY"_s, u":4095"_s}, {u"QT_QPA_PLATFORM"_s, u""_s}}, 1,
            "display :4095"},
        {"no display", {{u"DISPLAY"_s, u""_s}, {u"WAYLAND_DISPLAY"_s, u""_s}, {u"QT_QPA_PLATFORM"_s, u""_s}},
            1, "display"},
    };
    for (const auto& [what, changes, exitCode, message] : beginnings) {
        Program other(helperName, {}, changes);
        ASSERT_TRUE(other.ends()) << what;
        EXPECT_EQ(other.exitCode(), exitCode) << what;
        EXPECT_TRUE(other.errors().contains(QString::fromUtf8(message)))
            << what << ": " << qPrintable(other.errors());
    }
    EXPECT_TRUE(helper->isRunning()) << "the first one goes on";
}

TEST_F(HelperEnds, WhenTheBusGoesInsteadOfSpinning)
{
    QProcess bus;
    bus.start(u"dbus-daemon"_s, {u"--session"_s, u"--nofork"_s, u"--print-address"_s});
    ASSERT_TRUE(waitFor([&] { return bus.canReadLine(); }));
    const QString address = QString::fromUtf8(bus.readLine()).trimmed();
    helper = std::make_unique<Program>(
        helperName, QStringList(), Program::Environment{{u"DBUS_SESSION_BUS_ADDRESS"_s, address}});
    const QString slot = home.path(u"QX77Z4012M.com.quor-app/Preferences/action"_s);
    ASSERT_TRUE(waitFor([&] { return QFile::exists(slot); }));
    bus.kill();
    ASSERT_TRUE(helper->ends());
    EXPECT_EQ(helper->exitCode(), 1);
    EXPECT_TRUE(helper->errors().contains(u"bus"_s)) << qPrintable(helper->errors());
}

} // namespace
