// SPDX-License-Identifier: MIT
#include "Platform/Linux/Bus/DBusNotificationCenter.h"
#include "Platform/Linux/Bus/SessionBus.h"
#include "Support/WaitFor.h"

#include <QDBusMessage>
#include <QDBusReply>
#include <QProcess>

#include <gmock/gmock.h>

#include <memory>
#include <vector>

using namespace Qt::StringLiterals;
using namespace quor::platform;
using quor::test::waitFor;
using testing::ElementsAre;

namespace {

class DBusNotificationCenterTest : public testing::Test {
protected:
    // Posts arrive in order: once this one is here, all before it are.
    void settle()
    {
        bool arrived = false;
        const auto token = center->addObserver(u"settled"_s, [&](const Notification&) { arrived = true; });
        center->post(u"settled"_s);
        EXPECT_TRUE(waitFor([&] { return arrived; }));
        center->removeObserver(token);
    }
    DistributedNotificationCenter::ObserverToken record(const QString& name, int id)
    {
        return center->addObserver(name, [this, id](const Notification&) { calls.push_back(id); });
    }
    [[nodiscard]] uint matchRules() const
    {
        auto request = QDBusMessage::createMethodCall("org.freedesktop.DBus"_L1, "/org/freedesktop/DBus"_L1,
            "org.freedesktop.DBus.Debug.Stats"_L1, "GetConnectionStats"_L1);
        request << bus.connection().baseService();
        const QDBusReply<QVariantMap> reply = bus.connection().call(request);
        return reply.value().value(u"MatchRules"_s).toUInt();
    }

    SessionBus bus;
    std::unique_ptr<DBusNotificationCenter> center = std::make_unique<DBusNotificationCenter>(bus);
    std::vector<int> calls;
};

} // namespace

TEST_F(DBusNotificationCenterTest, ABurstOfPostsReachesTheObserversOfJustTheirNamesInOrder)
{
    const QStringList names{
        u"com.Updated.Helper"_s, u"com.Updated"_s, u"back\\slash"_s, u"a,arg0='b'"_s, u""_s, u"Zeit läuft"_s};
    QStringList heard, expected;
    for (const auto& name : names)
        std::ignore
            = center->addObserver(name, [&](const Notification& told) { heard << name << told.name; });
    for (int i = 0; i < 10'000; ++i) {
        center->post(names[i % names.size()]);
        expected << names[i % names.size()] << names[i % names.size()];
    }
    settle();
    EXPECT_TRUE(heard == expected) << heard.size();
}

TEST_F(DBusNotificationCenterTest, HearsOtherProcessesAndIgnoresSignalsOfAnotherShape)
{
    std::ignore = record(u"shell"_s, 1);
    for (const auto& arguments : {QStringList{}, {u"string:shell"_s, u"int32:7"_s}, {u"array:string:shell"_s},
             {u"objpath:/shell"_s}, {u"string:shell"_s}}) {
        QStringList command{u"--session"_s, u"--type=signal"_s, u"/com/quor_app/DistributedNotifications"_s,
            u"com.quor_app.DistributedNotifications.Posted"_s};
        ASSERT_EQ(QProcess::execute(u"dbus-send"_s, command << arguments), 0);
    }
    EXPECT_TRUE(waitFor([&] { return !calls.empty(); }));
    settle();
    EXPECT_THAT(calls, ElementsAre(1));
}

TEST_F(DBusNotificationCenterTest, HandlersMayAddAndRemoveObserversAndEndTheCentre)
{
    DistributedNotificationCenter::ObserverToken self{}, other{};
    self = center->addObserver(u"change"_s, [&](const Notification& told) {
        center->removeObserver(self);
        center->removeObserver(other); // on its way already, and the last of its name
        std::ignore = record(told.name, 3);
        calls.push_back(1);
    });
    other = record(u"change"_s, 2);
    center->post(u"change"_s);
    settle();
    EXPECT_THAT(calls, ElementsAre(1));
    center->post(u"change"_s);
    settle();
    EXPECT_THAT(calls, ElementsAre(1, 3));

    std::ignore = center->addObserver(u"end"_s, [&](const Notification&) { center.reset(); });
    center->post(u"end"_s);
    EXPECT_TRUE(waitFor([&] { return !center; }));
}

TEST_F(DBusNotificationCenterTest, TheBusKeepsOneRulePerNameAndNoneAfterwards)
{
    const auto before = matchRules();
    const auto first = record(u"rule"_s, 1);
    const auto second = record(u"rule"_s, 2);
    EXPECT_EQ(matchRules(), before + 1);
    center->post(u"rule"_s);
    center->removeObserver(first);
    center->removeObserver(second);
    EXPECT_EQ(matchRules(), before);
    settle();
    EXPECT_TRUE(calls.empty()) << "what was on its way came to one that had left";
}
