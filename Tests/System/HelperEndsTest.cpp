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

const QString helperName = QStringLiteral("quor-menubar-helper");

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

struct Beginning {
    const char* what;
    Program::Environment changes;
    int exitCode;
    const char* message;
};

TEST_F(HelperEnds, DoesNotBeginWithoutABusADisplayOrASecondTime)
{
    startHelper();
    const Beginning beginnings[]{
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
    for (const Beginning& beginning : beginnings) {
        Program other(helperName, {}, beginning.changes);
        ASSERT_TRUE(other.ends()) << beginning.what;
        EXPECT_EQ(other.exitCode(), beginning.exitCode) << beginning.what;
        EXPECT_TRUE(other.errors().contains(QString::fromUtf8(beginning.message)))
            << beginning.what << ": " << qPrintable(other.errors());
    }
    EXPECT_TRUE(helper->isRunning()) << "the first one goes on";
}

TEST_F(HelperEnds, WhenTheBusGoesInsteadOfSpinning)
{
    QProcess bus;
    bus.start(QStringLiteral("dbus-daemon"),
        {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--print-address")});
    ASSERT_TRUE(waitFor([&] { return bus.canReadLine(); }));
    const QString address = QString::fromUtf8(bus.readLine()).trimmed();
    helper = std::make_unique<Program>(
        helperName, QStringList(), Program::Environment{{u"DBUS_SESSION_BUS_ADDRESS"_s, address}});
    const QString slot = home.path(QStringLiteral("QX77Z4012M.com.quor-app/Preferences/action"));
    ASSERT_TRUE(waitFor([&] { return QFile::exists(slot); }));
    bus.kill();
    ASSERT_TRUE(helper->ends());
    EXPECT_EQ(helper->exitCode(), 1);
    EXPECT_TRUE(helper->errors().contains(QStringLiteral("bus"))) << qPrintable(helper->errors());
}

} // namespace
