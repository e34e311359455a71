// SPDX-License-Identifier: MIT
#include "InterAppCommBridge/InterAppCommBridge.h"
#include "Peer/PeerProgram.h"
#include "Platform/Linux/Bus/DBusNotificationCenter.h"
#include "Platform/Linux/Bus/SessionBus.h"
#include "Support/WaitFor.h"

#include <QDateTime>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quor;
using namespace quor::test;
using Action = GroupStorage::Action;
using platform::Notification;

namespace {

/// The helper's side of the exchange, played by the test.
class Exchange : public testing::Test {
protected:
    Exchange()
    {
        quorPeer(u"add Design --color F58C6E"_s);
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

TEST_F(Exchange, SendsRowsWithAnUpdateThatOvertakesTheirRequest)
{
    storage.setSearchTerm(u"desi"_s);
    storage.setAction({Action::RequestMenuEntries{}});
    quorPeer(u"add Planning"_s);
    EXPECT_EQ(std::get<MenuEntry::Entry>(storage.menuEntryData().at(2).value).label, u"Design"_s);
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

} // namespace
