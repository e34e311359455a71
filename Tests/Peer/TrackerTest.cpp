// SPDX-License-Identifier: MIT
#include "Peer/Model/TaskLookup.h"
#include "Peer/Tracked.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace quor::peer;
using quor::platform::secondsSince1970;
using quor::test::Tracked;

namespace {

constexpr double noon = 1'700'000'000;

TEST(Tracker, StopsWithinTheTimeThatTheTimerRan)
{
    const struct {
        double delta;
        double expectedLength;
    } cases[] = {{0, 600}, {-60, 540}, {-600, 0}, {-3600, 0}, {300, 600}, {-1e300, 0}};
    for (const auto& each : cases) {
        Tracked t(noon);
        t.tracker.addTask(u"Design"_s, {});
        t.tracker.start(u"T1"_s);
        t.clock.advance(600);
        ASSERT_EQ(t.tracker.stop(u"T1"_s, each.delta), Outcome::done);
        EXPECT_EQ(secondsSince1970(*t.tracker.entries()[0].end) - noon, each.expectedLength) << each.delta;
    }
}

TEST(Tracker, MovesTheStartButNotBeyondNow)
{
    const struct {
        double delta;
        double expectedStart; // from noon; the timer started there, 600 s ago; the last entry ended at -900
    } cases[] = {{-300, -300}, {300, 300}, {900, 600}, {0, -900}, {-3600, -3600}};
    for (const auto& each : cases) {
        Tracked t;
        t.tracker.addTask(u"Design"_s, {});
        t.track(noon - 9000, noon - 8000);
        t.track(noon - 3000, noon - 900);
        t.tracker.addTask(u"Meeting"_s, {});
        t.moveTo(noon);
        t.tracker.start(u"T1"_s);
        t.tracker.start(u"T2"_s);
        t.clock.advance(300);
        t.tracker.stop(u"T2"_s); // ended after the start: no entry before it
        t.clock.advance(300);
        ASSERT_EQ(t.tracker.adjust(u"T1"_s, each.delta), Outcome::done);
        EXPECT_EQ(secondsSince1970(t.tracker.runningEntry(u"T1"_s)->start) - noon, each.expectedStart);
    }
}

TEST(Tracker, AStartWithoutAnEntryBeforeItStays)
{
    Tracked t(noon);
    t.tracker.addTask(u"Design"_s, {});
    t.tracker.start(u"T1"_s);
    t.tracker.adjust(u"T1"_s, 0);
    EXPECT_EQ(secondsSince1970(t.tracker.runningEntry(u"T1"_s)->start), noon);
}

TEST(Tracker, StartsBesideOthersOrInTheirPlace)
{
    for (const bool single : {false, true}) {
        Tracked t(noon);
        Settings settings;
        settings.singleTimer = single;
        t.tracker.setSettings(settings);
        t.tracker.addTask(u"Design"_s, {});
        t.tracker.addTask(u"Meeting"_s, {});
        t.tracker.start(u"T1"_s);
        t.clock.advance(60);
        t.tracker.start(u"T2"_s, 90); // before the other one's start
        const auto running = t.tracker.runningEntries();
        ASSERT_EQ(running.size(), single ? 1U : 2U);
        EXPECT_EQ(running[0].taskID, u"T2"_s);
        if (single) {
            EXPECT_EQ(t.tracker.entries()[0].end, t.tracker.entries()[0].start);
        }
    }
}

TEST(Tracker, RefusesWhatMakesNoSense)
{
    Tracked t;
    t.tracker.addTask(u"Design"_s, {});
    EXPECT_EQ(t.tracker.start(u"T2"_s), Outcome::unknownTask);
    EXPECT_EQ(t.tracker.stop(u"T2"_s), Outcome::unknownTask);
    EXPECT_EQ(t.tracker.stop(u"T1"_s), Outcome::notRunning);
    EXPECT_EQ(t.tracker.adjust(u"T1"_s, -60), Outcome::notRunning);
    t.tracker.start(u"T1"_s);
    EXPECT_EQ(t.tracker.start(u"T1"_s), Outcome::alreadyRunning);
    EXPECT_EQ(t.tracker.entries().size(), 1U);
}

TEST(Tracker, AClockSetBackEndsAnEntryWhereItStarted)
{
    Tracked t(noon);
    t.tracker.addTask(u"Design"_s, {});
    t.tracker.start(u"T1"_s);
    t.clock.advance(-3600);
    t.tracker.adjust(u"T1"_s, 60);
    t.tracker.stop(u"T1"_s);
    EXPECT_EQ(secondsSince1970(t.tracker.entries()[0].start), noon);
    EXPECT_EQ(t.tracker.entries()[0].end, t.tracker.entries()[0].start);
}

TEST(TaskLookup, PrefersTheIdentifierThenTheExactName)
{
    const std::vector<Task> tasks{{u"T1"_s, u"Café"_s, {}}, {u"T2"_s, u"cafe"_s, {}}, {u"T3"_s, u"T1"_s, {}},
        {u"T4"_s, u"Same"_s, {}}, {u"T5"_s, u"Same"_s, {}}, {u"T6"_s, u"Größe"_s, {}}};
    const struct {
        QString text;
        QStringList meant;
    } cases[] = {{u"T1"_s, {u"T1"_s}}, {u"cafe"_s, {u"T2"_s}}, {u"CAFE"_s, {u"T1"_s, u"T2"_s}},
        {u"Same"_s, {u"T4"_s, u"T5"_s}}, {u"GROSSE"_s, {u"T6"_s}}, {u"Caf"_s, {}}, {u""_s, {}}};
    for (const auto& each : cases) {
        QStringList ids;
        for (const Task* const task : tasksMeant(tasks, each.text))
            ids.append(task->id);
        EXPECT_EQ(ids.join(u' ').toStdString(), each.meant.join(u' ').toStdString())
            << each.text.toStdString();
    }
}

} // namespace
