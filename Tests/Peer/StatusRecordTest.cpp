// SPDX-License-Identifier: MIT
#include "Peer/Model/StatusRecord.h"

#include "Peer/Model/NextChange.h"
#include "Peer/Model/Reports.h"
#include "Peer/Tracked.h"

#include <QDateTime>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace quor::peer;
using quor::test::Tracked;

namespace {

double at(const QString& local)
{
    return static_cast<double>(QDateTime::fromString(local, Qt::ISODate).toSecsSinceEpoch());
}

TEST(StatusRecord, TotalsTakeTodaysPartOfEachEntry)
{
    const std::tuple<QString, QString, QString, double> cases[] = {
        {u"2023-11-13T23:00:00"_s, u"2023-11-14T00:30:00"_s, u"2023-11-14T12:00:00"_s, 1800},
        {u"2023-11-12T22:00:00"_s, u"2023-11-14T10:00:00"_s, u"2023-11-13T12:00:00"_s, 86400},
        {u"2024-03-30T12:00:00"_s, u"2024-04-01T12:00:00"_s, u"2024-03-31T23:00:00"_s, 23 * 3600},
    };
    for (const auto& [start, end, now, expected] : cases) {
        Tracked t(0, {u"Design"_s});
        t.track(at(start), at(end));
        t.moveTo(at(now));
        EXPECT_EQ(statusRecord(t.tracker, t.clock.now()).inactiveTotalTimeToday, expected);
    }
}

TEST(StatusRecord, ARunningTimerCountsFromMidnightOnAndNeverBackwards)
{
    Tracked t(at(u"2023-11-13T23:00:00"_s), {u"Design"_s});
    t.tracker.start(u"T1"_s);
    for (const auto& [now, start] : {std::pair(u"2023-11-13T23:30:00"_s, u"2023-11-13T23:00:00"_s),
             {u"2023-11-14T01:00:00"_s, u"2023-11-14T00:00:00"_s},
             {u"2023-11-11T22:00:00"_s, u"2023-11-11T22:00:00"_s}}) { // the clock was set back
        t.moveTo(at(now));
        EXPECT_THAT(statusRecord(t.tracker, t.clock.now()).activeStartTimes, testing::ElementsAre(at(start)));
        EXPECT_EQ(statusReport(t.tracker, t.clock.now())["secondsToday"_L1].toDouble(), at(now) - at(start));
    }
}

TEST(StatusRecord, ShowsTheTaskStartedLast)
{
    Tracked t(1'700'000'000, {u"Design"_s});
    t.tracker.addTasks({u"Meeting"_s}, 0xF58C6E);
    t.tracker.start(u"T2"_s);
    t.tracker.start(u"T1"_s, 60);
    const auto both = statusRecord(t.tracker, t.clock.now());
    EXPECT_EQ(both.activeStartTimes.size(), 2U);
    EXPECT_EQ(both.taskName, u"Meeting"_s);
    EXPECT_EQ(both.activeColor, 0xF58C6EU);
    t.tracker.stop(u"T2"_s);
    EXPECT_FALSE(statusRecord(t.tracker, t.clock.now()).activeColor);
}

TEST(NextChange, IsTheFirstTextToTurn)
{
    const std::tuple<bool, bool, double, std::vector<double>, double> cases[] = {
        {false, false, 0, {59.5}, 0.5}, {false, false, 0, {120}, 60},
        {false, true, 40, {15}, 5}, // the total changes first
        {false, false, 0, {20, 10}, 15}, // two timers: twice as fast
        {true, false, 0, {80}, 10}, // a day of 90 seconds ends
        {false, false, 0, {}, 12 * 3600}, // nothing runs: the day
    };
    const auto now = quor::platform::dateFromSeconds(at(u"2023-11-14T12:00:00"_s));
    for (const auto& [inDays, showTotal, inactive, runningFor, expected] : cases) {
        Settings settings;
        settings.showWorkingDays = inDays;
        settings.workingDayLengthSeconds = 90;
        quor::MenubarStatusItemData shown;
        shown.menuBarShowRunningTimer = true;
        shown.menuBarShowDailyTotal = showTotal;
        shown.inactiveTotalTimeToday = inactive;
        for (const double seconds : runningFor)
            shown.activeStartTimes.push_back(quor::platform::secondsSince1970(now) - seconds);
        const double delay = (nextChange(shown, settings, now) - now).count();
        EXPECT_GT(delay, expected) << "woken before the turn";
        EXPECT_LT(delay, expected + 0.01);
    }
}

} // namespace
