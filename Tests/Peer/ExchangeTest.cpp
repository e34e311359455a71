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
        observers_ = {bridge.registerForNotification(
                          InterAppNotification::updatedHelper, [this](const Notification&) { ++updates; }),
            bridge.registerForNotification(
                InterAppNotification::helperKill, [this](const Notification&) { ++kills; })};
    }
    ~Exchange() override
    {
        for (const auto observer : observers_)
            center.removeObserver(observer);
    }

    /// Sends an action as the helper does, and waits for the next update.
    testing::AssertionResult ask(const Action& action)
    {
        const int before = updates;
        storage.setAction(action);
        bridge.postNotification(InterAppNotification::updatedMain);
        return waitFor([&] { return updates > before; }) ? testing::AssertionSuccess()
                                                         : testing::AssertionFailure() << "no answer";
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
    int kills = 0;

private:
    std::vector<platform::DistributedNotificationCenter::ObserverToken> observers_;
};

TEST_F(Exchange, CarriesOutEachActionOnce)
{
    ASSERT_TRUE(ask({Action::StartTimer{u"T1"_s}}));
    EXPECT_EQ(storage.action(), Action());
    const double start = storage.timerData().activeStartTimes.at(0);

    ASSERT_TRUE(ask({Action::AdjustTimer{u"T1"_s, -0.5}}));
    ASSERT_TRUE(ask({Action::None{}})) << "asks for no more than the state of things";
    EXPECT_EQ(storage.timerData().activeStartTimes.at(0), start - 0.5);

    ASSERT_TRUE(ask({Action::StopTimer{u"T1"_s, -1e6}}));
    EXPECT_FALSE(storage.timerData().trackerActive);
    EXPECT_EQ(storage.timerData().inactiveTotalTimeToday, 0);
    EXPECT_TRUE(ask({Action::StopTimer{u"T7"_s, 0}})) << "also answers what it cannot do";

    peer.kill();
    storage.setAction({Action::StartTimer{u"T1"_s}});
    peer.start();
    ASSERT_TRUE(ask({Action::None{}}));
    EXPECT_FALSE(storage.timerData().trackerActive) << "of before its start";
}

TEST_F(Exchange, AnswersRequestsForRowsWithTheSearchTerm)
{
    storage.setSearchTerm(u"MEET"_s);
    ASSERT_TRUE(ask({Action::RequestMenuEntries{}}));
    EXPECT_EQ(storage.action(), Action{Action::RequestMenuEntries{}}) << "tells the helper of the rows";
    EXPECT_EQ(firstTask(), u"Meeting"_s);

    // Another update gets in between the request and its notification.
    storage.setSearchTerm(u"desi"_s);
    quorPeer(u"start T2"_s);
    EXPECT_EQ(firstTask(), u"Design"_s);
}

TEST_F(Exchange, ARewindInTheMenuSendsItsRowsAnew)
{
    ASSERT_TRUE(ask({Action::StartTimer{u"T1"_s}}));
    ASSERT_TRUE(ask({Action::AdjustTimer{u"T1"_s, -60}}));
    EXPECT_EQ(storage.action(), Action()) << "no menu is open that could want rows";
    ASSERT_TRUE(ask({Action::RequestMenuEntries{}}));
    const auto before = storage.menuEntryData();
    ASSERT_TRUE(ask({Action::AdjustTimer{u"T1"_s, -60}}));
    EXPECT_EQ(storage.action(), Action{Action::RequestMenuEntries{}});
    EXPECT_NE(storage.menuEntryData(), before);
}

TEST_F(Exchange, PublishesWhenAMinuteTurns)
{
    quorPeer(u"start T1 --ago 0.98"_s);
    double atUpdate = 0;
    const auto observer
        = bridge.registerForNotification(InterAppNotification::updatedHelper, [&](const Notification&) {
              atUpdate = double(QDateTime::currentMSecsSinceEpoch()) / 1000
                  - storage.timerData().activeStartTimes.at(0);
          });
    EXPECT_TRUE(waitFor([&] { return atUpdate >= 60; })) << atUpdate;
    EXPECT_LT(atUpdate, 60.5);
    center.removeObserver(observer);
}

TEST_F(Exchange, SpeaksToAHelperThatRunsAndQuitsWithIt)
{
    ASSERT_EQ(bus.claim(bridge.helperItemBundleID), platform::SessionBus::Claim::claimed);
    EXPECT_EQ(quorPeer(u"open-menu"_s).exitCode, 0);
    EXPECT_EQ(storage.action(), Action{Action::OpenMenu{}});
    EXPECT_EQ(quorPeer(u"kill-helper"_s).exitCode, 0);
    EXPECT_TRUE(waitFor([&] { return kills == 1; }));

    storage.setAction({Action::OpenQuor{}});
    bridge.postNotification(InterAppNotification::updatedMain);
    EXPECT_TRUE(waitFor([&] { return peer.process.canReadLine(); }));
    EXPECT_EQ(peer.process.readLine(), "asked to come to the front\n");
    storage.setAction({Action::QuitQuor{}});
    bridge.postNotification(InterAppNotification::updatedMain);
    EXPECT_TRUE(waitFor([&] { return peer.process.state() == QProcess::NotRunning; }));
    EXPECT_EQ(peer.process.exitCode(), 0);
    EXPECT_TRUE(waitFor([&] { return kills == 2; }));
}

} // namespace
