// SPDX-License-Identifier: MIT
#include "InterAppCommBridge/InterAppCommBridge.h"
#include "Peer/PeerProgram.h"
#include "Platform/Linux/DBusNotificationCenter.h"
#include "Platform/Linux/SessionBus.h"
#include "Support/WaitFor.h"

#include <QJsonObject>

#include <gmock/gmock.h>

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
        quorPeer({u"add"_s, u"Design"_s, u"--color"_s, u"F58C6E"_s});
        quorPeer({u"add"_s, u"Meeting"_s});
        observers_.push_back(bridge.registerForNotification(
            InterAppNotification::updatedHelper, [this](const Notification&) { ++updates; }));
        observers_.push_back(bridge.registerForNotification(
            InterAppNotification::helperKill, [this](const Notification&) { ++kills; }));
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
        storage().setAction(action);
        bridge.postNotification(InterAppNotification::updatedMain);
        return waitFor([&] { return updates > before; }) ? testing::AssertionSuccess()
                                                         : testing::AssertionFailure() << "no answer";
    }

    [[nodiscard]] const GroupStorage& storage() const { return bridge.groupStorage; }
    [[nodiscard]] bool slotHolds(const Action& action) const { return storage().action() == action; }

    ServingPeer peer;
    platform::SessionBus bus;
    platform::DBusNotificationCenter center{bus};
    const InterAppCommBridge bridge{center};
    int updates = 0;
    int kills = 0;

private:
    std::vector<platform::DistributedNotificationCenter::ObserverToken> observers_;
};

bool holdsRowOf(const std::vector<MenuEntry>& rows, const QString& label)
{
    return std::any_of(rows.begin(), rows.end(), [&](const MenuEntry& row) {
        const auto* const entry = std::get_if<MenuEntry::Entry>(&row.value);
        return entry && entry->label == label;
    });
}

TEST_F(Exchange, CarriesOutEachActionOnce)
{
    ASSERT_TRUE(ask({Action::StartTimer{u"T1"_s}}));
    EXPECT_TRUE(slotHolds({Action::None{}}));
    auto record = storage().timerData();
    ASSERT_EQ(record.activeStartTimes.size(), 1U);
    EXPECT_EQ(record.taskName, u"Design"_s);
    EXPECT_EQ(record.activeColor, 0xF58C6EU);
    const double start = record.activeStartTimes[0];

    ASSERT_TRUE(ask({Action::AdjustTimer{u"T1"_s, -0.5}}));
    ASSERT_TRUE(ask({Action::None{}})) << "asks for no more than the state of things";
    EXPECT_EQ(storage().timerData().activeStartTimes.at(0), start - 0.5);

    ASSERT_TRUE(ask({Action::StopTimer{u"T1"_s, -1e6}}));
    record = storage().timerData();
    EXPECT_FALSE(record.trackerActive);
    EXPECT_EQ(record.inactiveTotalTimeToday, 0);
    EXPECT_TRUE(ask({Action::StopTimer{u"T7"_s, 0}})) << "also answers what it cannot do";
}

TEST_F(Exchange, AnswersRequestsForRowsWithTheSearchTerm)
{
    storage().setSearchTerm(u"MEET"_s);
    ASSERT_TRUE(ask({Action::RequestMenuEntries{}}));
    EXPECT_TRUE(slotHolds({Action::RequestMenuEntries{}})) << "tells the helper that rows are there";
    EXPECT_TRUE(holdsRowOf(storage().menuEntryData(), u"Meeting"_s));
    EXPECT_FALSE(holdsRowOf(storage().menuEntryData(), u"Design"_s));

    // Another update gets in between the request and its notification.
    storage().setSearchTerm(u"desi"_s);
    storage().setAction({Action::RequestMenuEntries{}});
    quorPeer({u"start"_s, u"T1"_s});
    EXPECT_TRUE(holdsRowOf(storage().menuEntryData(), u"Design"_s));
}

TEST_F(Exchange, ARewindInTheMenuSendsItsRowsAnew)
{
    ASSERT_TRUE(ask({Action::StartTimer{u"T1"_s}}));
    ASSERT_TRUE(ask({Action::AdjustTimer{u"T1"_s, -60}}));
    EXPECT_TRUE(slotHolds({Action::None{}})) << "no menu is open that could want rows";
    ASSERT_TRUE(ask({Action::RequestMenuEntries{}}));
    storage().setAction({Action::None{}});
    const auto before = storage().menuEntryData();
    ASSERT_TRUE(ask({Action::AdjustTimer{u"T1"_s, -60}}));
    EXPECT_TRUE(slotHolds({Action::RequestMenuEntries{}}));
    EXPECT_NE(storage().menuEntryData(), before);
}

TEST_F(Exchange, PublishesWhenAMinuteTurns)
{
    quorPeer({u"start"_s, u"T1"_s, u"--ago"_s, u"0.98"_s});
    const auto running = [&] {
        return double(QDateTime::currentMSecsSinceEpoch()) / 1000
            - storage().timerData().activeStartTimes.at(0);
    };
    double atUpdate = 0;
    const auto observer = bridge.registerForNotification(
        InterAppNotification::updatedHelper, [&](const Notification&) { atUpdate = running(); });
    EXPECT_TRUE(waitFor([&] { return atUpdate >= 60; })) << atUpdate;
    EXPECT_LT(atUpdate, 60.5);
    center.removeObserver(observer);
}

TEST_F(Exchange, SettingsReachTheHelper)
{
    const int before = updates;
    quorPeer(
        {u"set"_s, u"showWorkingDays=true"_s, u"workingDayLengthSeconds=25200"_s, u"enableLogging=true"_s,
            u"showDurationInPercent=true"_s, u"nonWorkingTime=60"_s, u"menuBarShowActiveTask=false"_s});
    EXPECT_TRUE(waitFor([&] { return updates > before; }));
    EXPECT_TRUE(
        storage().showWorkingDays() && storage().enableLogging() && storage().showDurationInPercent());
    EXPECT_EQ(storage().workingDayLengthSeconds(), 25200);
    EXPECT_EQ(storage().timerData().nonWorkingTime, 60);
    EXPECT_FALSE(storage().timerData().menuBarShowActiveTask);
}

TEST_F(Exchange, SpeaksToAHelperThatRuns)
{
    ASSERT_EQ(bus.claim(bridge.helperItemBundleID), platform::SessionBus::Claim::claimed);
    const int before = updates;
    EXPECT_EQ(quorPeer({u"open-menu"_s}).exitCode, 0);
    EXPECT_TRUE(slotHolds({Action::OpenMenu{}}));
    EXPECT_TRUE(waitFor([&] { return updates > before; }));
    EXPECT_EQ(quorPeer({u"kill-helper"_s}).exitCode, 0);
    EXPECT_TRUE(waitFor([&] { return kills == 1; }));
}

TEST_F(Exchange, ComesToTheFrontAndQuits)
{
    storage().setAction({Action::OpenQuor{}});
    bridge.postNotification(InterAppNotification::updatedMain);
    EXPECT_TRUE(waitFor([&] { return peer.process().canReadLine(); }));
    EXPECT_EQ(peer.process().readLine(), "asked to come to the front\n");
    storage().setAction({Action::QuitQuor{}});
    bridge.postNotification(InterAppNotification::updatedMain);
    EXPECT_TRUE(waitFor([&] { return peer.process().state() == QProcess::NotRunning; }));
    EXPECT_EQ(peer.process().exitCode(), 0);
    EXPECT_TRUE(waitFor([&] { return kills == 1; }));
}

TEST_F(Exchange, AnActionLeftFromBeforeItsStartIsDropped)
{
    peer.kill();
    storage().setAction({Action::StartTimer{u"T1"_s}});
    peer.start();
    ASSERT_TRUE(ask({Action::None{}}));
    EXPECT_FALSE(storage().timerData().trackerActive);
}

} // namespace
