// SPDX-License-Identifier: MIT
#include "Peer/Model/TaskLookup.h"
#include "Peer/Tracked.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using namespace quor::peer;
using quor::platform::secondsSince1970;
using quor::test::Tracked;

namespace {

constexpr double noon = 1'700'000'000;

TEST(Tracker, StopsWithinTheTimeThatTheTimerRan)
{
    const std::tuple<double, double, double> cases[] = {{600, 0, 600}, {600, -60, 540}, {600, -3600, 0},
        {600, 300, 600}, {600, -1e300, 0}, {-3600, 0, 0}}; // the clock was set back
    for (const auto& [ran, delta, length] : cases) {
        Tracked t(noon, {u"Design"_s});
        t.tracker.start(u"T1"_s);
        t.tracker.adjust(u"T1"_s, 0); // to the end of the entry before it, but there is none
        t.clock.advance(ran);
        if (ran < 0)
            t.tracker.adjust(u"T1"_s, 60);
        EXPECT_EQ(secondsSince1970(t.tracker.entries()[0].start), noon);
        ASSERT_EQ(t.tracker.stop(u"T1"_s, delta), Outcome::done);
        EXPECT_EQ(secondsSince1970(*t.tracker.entries()[0].end) - noon, length) << delta;
    }
}

TEST(Tracker, MovesTheStartButNotBeyondNow)
{
    // Relative to noon, when the timer started (600 s ago); the last entry ended at -900.
    const std::tuple<double, double> cases[]
        = {{-300, -300}, {300, 300}, {900, 600}, {0, -900}, {-3600, -3600}};
    for (const auto& [delta, start] : cases) {
        Tracked t(noon, {u"Design"_s, u"Meeting"_s});
        t.track(noon - 9000, noon - 8000);
        t.track(noon - 3000, noon - 900);
        t.moveTo(noon);
        t.tracker.start(u"T1"_s);
        t.track(noon, noon + 300); // ends after the start: no entry before it
        t.moveTo(noon + 600);
        ASSERT_EQ(t.tracker.adjust(u"T1"_s, delta), Outcome::done);
        EXPECT_EQ(secondsSince1970(t.tracker.runningEntry(u"T1"_s)->start) - noon, start);
    }
}

TEST(Tracker, StartsBesideOthersOrInTheirPlace)
{
    for (const bool single : {false, true}) {
        Tracked t(noon, {u"Design"_s, u"Meeting"_s});
        Settings settings;
        settings.singleTimer = single;
        t.tracker.setSettings(settings);
        t.tracker.start(u"T1"_s);
        t.clock.advance(60);
        t.tracker.start(u"T2"_s, 90); // before the other one's start
        EXPECT_EQ(t.tracker.runningEntries().size(), single ? 1U : 2U);
        EXPECT_EQ(t.tracker.runningEntries()[0].taskID, u"T2"_s);
        EXPECT_EQ(t.tracker.entries()[0].end == t.tracker.entries()[0].start, single);
    }
}

TEST(TaskLookup, PrefersTheIdentifierThenTheExactName)
{
    const std::vector<Task> tasks{{u"T1"_s, u"Café"_s, {}}, {u"T2"_s, u"cafe"_s, {}}, {u"T3"_s, u"T1"_s, {}},
        {u"T4"_s, u"Same"_s, {}}, {u"T5"_s, u"Same"_s, {}}, {u"T6"_s, u"Größe"_s, {}}};
    const QString cases[][2] = {{u"T1"_s, u"T1"_s}, {u"cafe"_s, u"T2"_s}, {u"CAFE"_s, u"T1 T2"_s},
        {u"Same"_s, u"T4 T5"_s}, {u"GROSSE"_s, u"T6"_s}, {u"Caf"_s, u""_s}, {u""_s, u""_s}};
    for (const auto& [text, meant] : cases) {
        QStringList ids;
        for (const Task* const task : tasksMeant(tasks, text))
            ids.append(task->id);
        EXPECT_EQ(ids.join(u' '), meant) << text.toStdString();
    }
}

} // namespace
