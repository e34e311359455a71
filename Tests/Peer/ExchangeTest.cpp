// SPDX-License-Identifier: MIT
#include "InterAppCommBridge/InterAppCommBridge.h"
#include "Peer/PeerProgram.h"
#include "Platform/Linux/DBusNotificationCenter.h"
#include "Platform/Linux/SessionBus.h"
#include "Support/WaitFor.h"

#include <QDateTime>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quor;
using namespace quor::test;
using Action = GroupStorage::Action;
using platform::Notification;

namespace {

/// The helper's place in the exchange, taken by the test.
class Exchange : public testing::Test {
protected:
    Exchange()
    {
        quorPeer(u"add Design --color F58C6E"_s);
        quorPeer(u"add Meeting"_s);
        observer_ = bridge.registerForNotification(
            InterAppNotification::updatedHelper, [this](const Notification&) { ++updates; });
    }
    ~Exchange() override { center.removeObserver(observer_); }

    /// Sends an action as the helper does, and waits for the next update.
    [[nodiscard]] bool ask(const Action& action)
    {
        const int before = updates;
        storage.setAction(action);
        bridge.postNotification(InterAppNotification::updatedMain);
        return waitFor([&] { return updates > before; });
    }

    /// Of the rows: below the search field and a heading.
    [[nodiscard]] QString firstTask() const
    {
        return std::get<MenuEntry::Entry>(storage.menuEntryData().at(2).value).label;
    }

    ServingPeer peer;
    platform::SessionBus bus;
    platform::DBusNotificationCenter center{bus};
    const InterAppCommBridge bridge{center};
    const GroupStorage& storage = bridge.groupStorage;
    int updates = 0;

private:
    platform::DistributedNotificationCenter::ObserverToken observer_{};
};

TEST_F(Exchange, CarriesOutEachActionOnceAndTimersRunOnAfterAKill)
{
    EXPECT_TRUE(ask({Action::AdjustTimer{u"T1"_s, -60}})) << "also answers what it cannot do";
    ASSERT_TRUE(ask({Action::StartTimer{u"T1"_s}}));
    EXPECT_EQ(storage.action(), Action());
    const double start = storage.timerData().activeStartTimes.at(0);
    ASSERT_TRUE(ask({Action::AdjustTimer{u"T1"_s, -0.5}}));

    peer.kill();
    storage.setAction({Action::StopTimer{u"T1"_s, 0}});
    peer.start();
    ASSERT_TRUE(ask({Action::None{}})) << "asks for no more than the state of things";
    ASSERT_TRUE(storage.timerData().trackerActive) << "carried out an action of before its start";
    EXPECT_EQ(storage.timerData().activeStartTimes.at(0), start - 0.5);

    ASSERT_TRUE(ask({Action::StopTimer{u"T1"_s, -1e6}}));
    EXPECT_TRUE(waitFor([&] { return !storage.timerData().trackerActive; }));
    EXPECT_EQ(storage.timerData().inactiveTotalTimeToday, 0);
}

TEST_F(Exchange, AnswersRequestsForRowsAndSendsThemAnewAfterARewind)
{
    storage.setSearchTerm(u"MEET"_s);
    ASSERT_TRUE(ask({Action::StartTimer{u"T2"_s}}));
    ASSERT_TRUE(ask({Action::AdjustTimer{u"T2"_s, -60}}));
    EXPECT_EQ(storage.action(), Action()) << "no menu is open that could want rows";
    ASSERT_TRUE(ask({Action::RequestMenuEntries{}}));
    EXPECT_EQ(storage.action(), Action{Action::RequestMenuEntries{}}) << "tells the helper of the rows";
    EXPECT_EQ(firstTask(), u"Meeting"_s);

    const auto before = storage.menuEntryData();
    ASSERT_TRUE(ask({Action::AdjustTimer{u"T2"_s, -60}}));
    EXPECT_EQ(storage.action(), Action{Action::RequestMenuEntries{}});
    EXPECT_NE(storage.menuEntryData(), before);

    // Another update gets in between the request and its notification.
    storage.setSearchTerm(u"desi"_s);
    quorPeer(u"stop T2"_s);
    EXPECT_EQ(firstTask(), u"Design"_s);
}

TEST_F(Exchange, PublishesWhenAMinuteTurns)
{
    quorPeer(u"start T1 --ago 0.98"_s);
    double ran = 0;
    const auto observer
        = bridge.registerForNotification(InterAppNotification::updatedHelper, [&](const Notification&) {
              ran = double(QDateTime::currentMSecsSinceEpoch()) / 1000
                  - storage.timerData().activeStartTimes.at(0);
          });
    EXPECT_TRUE(waitFor([&] { return ran >= 60; })) << ran;
    EXPECT_LT(ran, 60.5);
    center.removeObserver(observer);
}

TEST_F(Exchange, SpeaksToAHelperThatRunsAndQuitsWithIt)
{
    ASSERT_EQ(bus.claim(bridge.helperItemBundleID), platform::SessionBus::Claim::claimed);
    EXPECT_EQ(quorPeer(u"open-menu"_s).exitCode, 0);
    EXPECT_EQ(storage.action(), Action{Action::OpenMenu{}});
    storage.setAction({Action::OpenQuor{}});
    bridge.postNotification(InterAppNotification::updatedMain);
    EXPECT_TRUE(waitFor([&] { return peer.process.canReadLine(); }));
    EXPECT_EQ(peer.process.readLine(), "asked to come to the front\n");
    int kills = 0;
    const auto observer = bridge.registerForNotification(
        InterAppNotification::helperKill, [&](const Notification&) { ++kills; });
    storage.setAction({Action::QuitQuor{}});
    bridge.postNotification(InterAppNotification::updatedMain);
    EXPECT_TRUE(waitFor([&] { return peer.process.state() == QProcess::NotRunning; }));
    EXPECT_EQ(peer.process.exitCode(), 0);
    EXPECT_TRUE(waitFor([&] { return kills == 1; }));
    center.removeObserver(observer);
}

} // namespace
