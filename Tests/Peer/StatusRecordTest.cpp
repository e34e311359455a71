// SPDX-License-Identifier: MIT
#include "Peer/Model/StatusRecord.h"

#include "Peer/Model/NextChange.h"
#include "Peer/Model/Reports.h"
#include "Peer/Tracked.h"

#include <QDateTime>

#include <gmock/gmock.h>

#include <ctime>

using namespace Qt::StringLiterals;
using namespace quor::peer;
using quor::test::Tracked;

namespace {

/// Central European time, without the zone database.
class LocalDays : public testing::Test {
protected:
    LocalDays() { setZone("CET-1CEST,M3.5.0,M10.5.0/3"); }
    ~LocalDays() override { before_.isNull() ? void(qunsetenv("TZ")) : setZone(before_); }

    static double at(const QString& local)
    {
        return static_cast<double>(QDateTime::fromString(local, Qt::ISODate).toSecsSinceEpoch());
    }

private:
    static void setZone(const QByteArray& zone)
    {
        qputenv("TZ", zone);
        tzset();
    }
    QByteArray before_ = qgetenv("TZ");
};

TEST_F(LocalDays, TotalsTakeTodaysPartOfEachEntry)
{
    const struct {
        QString start, end, now;
        double expected;
    } cases[] = {
        {u"2023-11-14T09:00:00"_s, u"2023-11-14T10:00:00"_s, u"2023-11-14T12:00:00"_s, 3600},
        {u"2023-11-13T23:00:00"_s, u"2023-11-14T00:30:00"_s, u"2023-11-14T12:00:00"_s, 1800},
        {u"2023-11-13T22:00:00"_s, u"2023-11-13T23:00:00"_s, u"2023-11-14T00:00:00"_s, 0},
        {u"2023-11-12T22:00:00"_s, u"2023-11-14T10:00:00"_s, u"2023-11-13T12:00:00"_s, 86400},
        {u"2023-10-28T12:00:00"_s, u"2023-10-30T12:00:00"_s, u"2023-10-29T23:00:00"_s, 25 * 3600},
        {u"2024-03-30T12:00:00"_s, u"2024-04-01T12:00:00"_s, u"2024-03-31T23:00:00"_s, 23 * 3600},
    };
    for (const auto& each : cases) {
        Tracked t;
        t.tracker.addTask(u"Design"_s, {});
        t.track(at(each.start), at(each.end));
        t.moveTo(at(each.now));
        const auto record = statusRecord(t.tracker, t.clock.now());
        EXPECT_EQ(record.inactiveTotalTimeToday, each.expected) << each.start.toStdString();
        EXPECT_FALSE(record.trackerActive);
    }
}

TEST_F(LocalDays, ARunningTimerCountsFromMidnightOn)
{
    Tracked t(at(u"2023-11-13T23:00:00"_s));
    t.tracker.addTask(u"Design"_s, 0xF58C6E);
    t.tracker.addTask(u"Meeting"_s, {});
    t.tracker.start(u"T1"_s);
    t.moveTo(at(u"2023-11-14T01:00:00"_s));
    auto record = statusRecord(t.tracker, t.clock.now());
    EXPECT_THAT(record.activeStartTimes, testing::ElementsAre(at(u"2023-11-14T00:00:00"_s)));
    EXPECT_EQ(record.taskName, u"Design"_s);
    EXPECT_EQ(record.activeColor, 0xF58C6EU);
    EXPECT_EQ(statusReport(t.tracker, t.clock.now())["secondsToday"_L1].toDouble(), 3600);

    t.tracker.start(u"T2"_s, 60);
    record = statusRecord(t.tracker, t.clock.now());
    EXPECT_EQ(record.activeStartTimes.size(), 2U);
    EXPECT_EQ(record.taskName, u"Meeting"_s) << "the one started last";
    EXPECT_FALSE(record.activeColor);
}

TEST_F(LocalDays, AClockSetBackGivesNoNegativeTotals)
{
    Tracked t(at(u"2023-11-14T12:00:00"_s));
    t.tracker.addTask(u"Design"_s, {});
    t.tracker.start(u"T1"_s);
    t.moveTo(at(u"2023-11-14T10:00:00"_s));
    EXPECT_THAT(statusRecord(t.tracker, t.clock.now()).activeStartTimes, testing::ElementsAre(t.now()));
    const auto status = statusReport(t.tracker, t.clock.now());
    EXPECT_EQ(status["secondsToday"_L1].toDouble(), 0);
    EXPECT_EQ(status["running"_L1][0]["seconds"_L1].toDouble(), 0);
    t.moveTo(at(u"2023-11-12T10:00:00"_s));
    EXPECT_THAT(statusRecord(t.tracker, t.clock.now()).activeStartTimes, testing::ElementsAre(t.now()));
}

TEST_F(LocalDays, TheNextChangeIsTheFirstTextToTurn)
{
    Settings days;
    days.showWorkingDays = true;
    days.workingDayLengthSeconds = 90;
    Settings decimal;
    decimal.showDurationInPercent = true;
    Settings zeroDays;
    zeroDays.showWorkingDays = true;
    zeroDays.workingDayLengthSeconds = 0;
    const struct {
        Settings settings;
        bool showRunning, showTotal;
        double inactive;
        std::vector<double> runningFor;
        double expected;
    } cases[] = {
        {{}, true, false, 30, {0}, 60},
        {{}, true, false, 0, {59.5}, 0.5},
        {{}, true, false, 0, {120}, 60},
        {{}, true, true, 40, {15}, 5}, // the total turns first
        {{}, false, true, 50, {15}, 55},
        {{}, true, false, 0, {20, 10}, 15}, // two timers: twice as fast
        {{}, false, false, 0, {15}, 12 * 3600}, // nothing on show but the day
        {{}, true, true, 10, {}, 12 * 3600},
        {days, true, false, 0, {80}, 10}, // a working day is full
        {days, true, false, 0, {100}, 50},
        {zeroDays, true, false, 0, {15}, 45},
        {decimal, true, false, 0, {36}, 18}, // 0.01 becomes 0.02
        {decimal, true, false, 0, {0}, 18},
    };
    const auto now = quor::platform::dateFromSeconds(at(u"2023-11-14T12:00:00"_s));
    for (std::size_t i = 0; i < std::size(cases); ++i) {
        quor::MenubarStatusItemData shown;
        shown.menuBarShowRunningTimer = cases[i].showRunning;
        shown.menuBarShowDailyTotal = cases[i].showTotal;
        shown.inactiveTotalTimeToday = cases[i].inactive;
        for (const double seconds : cases[i].runningFor)
            shown.activeStartTimes.push_back(quor::platform::secondsSince1970(now) - seconds);
        const double delay = (nextChange(shown, cases[i].settings, now) - now).count();
        EXPECT_GT(delay, cases[i].expected) << "case " << i << ": woken before the turn";
        EXPECT_NEAR(delay, cases[i].expected, 0.01) << "case " << i;
    }
}

} // namespace
