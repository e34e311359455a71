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
    // Waits until all posts so far have arrived. Posts arrive in order, so it posts another and waits for
    // that.
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

TEST_F(DBusNotificationCenterTest, PostsReachTheObserversOfExactlyTheirNameInOrder)
{
    const QStringList names{
        u"com.Updated.Helper"_s, u"com.Updated"_s, u"back\\slash"_s, u"a,arg0='b'"_s, u""_s, u"Zeit läuft"_s};
    QStringList heard, expected;
    for (const auto& name : names)
        std::ignore = center->addObserver(
            name, [&](const Notification& notification) { heard << name << notification.name; });
    for (int i = 0; i < 10'000; ++i) {
        center->post(names[i % names.size()]);
        expected << names[i % names.size()] << names[i % names.size()];
    }
    settle();
    EXPECT_TRUE(heard == expected) << heard.size();
}

TEST_F(DBusNotificationCenterTest, DeliversPostsOfOtherProcessesAndIgnoresMalformedSignals)
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

TEST_F(DBusNotificationCenterTest, HandlersMayAddAndRemoveObserversAndDestroyTheCentre)
{
    DistributedNotificationCenter::ObserverToken self{}, other{};
    self = center->addObserver(u"change"_s, [&](const Notification& notification) {
        center->removeObserver(self);
        center->removeObserver(other); // the next to be called, and the last observer of this name
        std::ignore = record(notification.name, 3);
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
    EXPECT_TRUE(calls.empty()) << "a post before the removal was delivered after it";
}
