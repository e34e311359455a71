// SPDX-License-Identifier: MIT
#include "View/StatusItem/StatusItemPlan.h"
#include "View/StatusItem/TaskText.h"

#include "Support/TestClock.h"

#include <QDateTime>

#include <gtest/gtest.h>

#include <limits>
#include <numbers>

using namespace Qt::StringLiterals;
using namespace quor;
using namespace quor::helper;

namespace {

constexpr double now = 1'700'000'000;
constexpr double hour = 3600;

StatusItemPlan plan(const MenubarStatusItemData& data, bool hasNotch = false)
{
    const toolkit::DurationFormatter formatter;
    return statusItemPlan(data, platform::dateFromSeconds(now), formatter, hasNotch);
}

TEST(TaskText, DropsEmojiAndBlanksAndCountsFurtherTimers)
{
    const struct {
        QString name;
        std::size_t timers;
        QString text;
    } cases[] = {
        {u"Design"_s, 2, u"Design+1"_s},
        {u" Fix #12 * 3 "_s, 0, u"Fix 12  3"_s},
        {u"\t\u00A0\u3000Café\u2003"_s, 0, u"Café"_s},
        {u"\U0001F600 \U0001F468\u200D\U0001F469\u200D\U0001F467 \U0001F1E9\U0001F1EA"_s, 3, u"+2"_s},
        {u"1\uFE0F\u20E3 2\u0301 3"_s, 0, u"3"_s}, // only bare digits are digits
        {u"e\u0301\u00A9\u2122x"_s, 0, u"e\u0301x"_s},
        {u"x"_s + QChar(0xD83D) + u"y"_s, 0, u"x"_s + QChar(0xD83D) + u"y"_s},
    };
    for (const auto& [name, timers, text] : cases)
        EXPECT_EQ(taskText(name, timers), text) << qPrintable(name);
}

TEST(StatusItemPlan, SumsTimesAndBoundsTheProgress)
{
    constexpr double bound = 4 * std::numbers::pi;
    constexpr double huge = std::numeric_limits<double>::max();
    const struct {
        double expected, nonWorking, inactive;
        std::vector<double> starts;
        double progress;
    } cases[] = {
        {8 * hour, hour, 2 * hour, {now - hour}, 0.5},
        {8 * hour, 0, 4 * hour, {now - hour, now + 3 * hour}, 1},
        {0, 0, 0, {}, 0},
        {0, 0, 1, {}, bound},
        {1, -huge, -huge, {}, 0},
        {huge, huge, huge, {-huge, -huge}, bound},
    };
    for (const auto& [expected, nonWorking, inactive, starts, progress] : cases) {
        MenubarStatusItemData data;
        data.expectedWorkingTime = expected;
        data.nonWorkingTime = nonWorking;
        data.inactiveTotalTimeToday = inactive;
        data.activeStartTimes = starts;
        EXPECT_DOUBLE_EQ(dayProgress(data, platform::dateFromSeconds(now)), progress);
    }
}

TEST(StatusItemPlan, ChoosesTheSymbolAndShowsOverTimeLiveAboveTheCutOutRingOnly)
{
    using Ring = StatusItemPlan::Ring;
    const QColor white(Qt::white);
    const QColor faintWhite = QColor::fromRgbF(1, 1, 1, 0.4F);
    const QColor blue(0x00, 0xBF, 0xF9);
    const QColor faintBlue = QColor::fromRgbF(0, blue.greenF(), blue.blueF(), 0.4F);
    constexpr quint64 activeColor = 0xAB'00'BF'F9; // bits above the lowest 24 are ignored
    const struct {
        bool progress;
        std::optional<quint64> color;
        double hours; // of eight
        StatusItemPlan::Symbol symbol;
        std::optional<Ring> overTime;
    } cases[] = {
        {false, {}, 4, {}, {}},
        {true, {}, 4, Ring{0.5, faintWhite, white, CutoutTag}, {}},
        {true, {}, 8, Ring{1, faintWhite, white, CutoutTag}, {}},
        {true, {}, 10, Ring{1.25, faintWhite, white, CutoutTag},
            Ring{1.25, QColor(Qt::transparent), std::nullopt, LiveTag}},
        {true, activeColor, 10, Ring{1.25, blue, faintBlue, LiveTag}, {}},
        {false, activeColor, 10, StatusItemPlan::Dot{blue}, {}},
    };
    for (const auto& each : cases) {
        MenubarStatusItemData data;
        data.expectedWorkingTime = 8 * hour;
        data.menuBarShowDayProgress = each.progress;
        data.activeColor = each.color;
        data.inactiveTotalTimeToday = each.hours * hour;
        EXPECT_EQ(plan(data).symbol, each.symbol) << each.hours;
        EXPECT_EQ(plan(data).overTime, each.overTime) << each.hours;
    }
}

TEST(StatusItemPlan, ChoosesTheTextsAndTheirLayout)
{
    const struct {
        bool notch, task, running, total, active, twoLines;
        double inactive;
        std::vector<double> starts;
        std::optional<QString> text;
    } cases[] = {
        {true, true, false, false, true, false, hour, {now - hour}, std::nullopt},
        {false, false, false, true, false, false, 0, {}, u"00:00"_s},
        {true, true, false, true, true, false, hour, {now - hour / 2}, u"01:30"_s},
        {false, false, true, false, true, false, hour, {now}, std::nullopt},
        {false, false, true, false, true, false, hour, {now - 90, now - 90}, u"00:03"_s},
        {true, true, true, true, true, true, hour, {now - hour}, u"01:00 \u2215 02:00"_s},
        {true, false, true, true, true, false, hour, {now - hour}, u"01:00 \u2215 02:00"_s},
        {true, true, true, true, true, false, 60, {now - hour}, u"01:01"_s},
        {false, false, true, true, false, false, hour, {}, u"01:00"_s},
    };
    for (const auto& each : cases) {
        MenubarStatusItemData data;
        data.taskName = u"Design"_s;
        data.menuBarShowActiveTask = each.task;
        data.menuBarShowRunningTimer = each.running;
        data.menuBarShowDailyTotal = each.total;
        data.trackerActive = each.active;
        data.inactiveTotalTimeToday = each.inactive;
        data.activeStartTimes = each.starts;
        const StatusItemPlan planned = plan(data, each.notch);
        EXPECT_EQ(planned.timeText, each.text);
        EXPECT_EQ(planned.taskText.has_value(), each.task);
        EXPECT_EQ(planned.twoLines, each.twoLines);
        const auto padding = each.twoLines ? HeightPadding::double_ : HeightPadding::single;
        EXPECT_EQ(planned.heightPadding, each.task || each.text ? std::optional(padding) : std::nullopt);
        EXPECT_EQ(planned.clockFace.has_value(), !each.task && !each.text) << "flags alone show nothing";
    }
}

TEST(StatusItemPlan, WithNothingElseShowsTheLocalTime)
{
    const QTime local = QDateTime::fromSecsSinceEpoch(qint64(now)).time();
    EXPECT_EQ(plan({}).clockFace, (StatusItemPlan::ClockFace{local.hour(), local.minute()}));
}

TEST(StatusItemPlan, LooksLikeAnotherUpToStepsTooSmallToSee)
{
    MenubarStatusItemData data;
    data.menuBarShowDayProgress = true;
    data.expectedWorkingTime = 8 * hour;
    const auto after = [&](double seconds) {
        data.inactiveTotalTimeToday = seconds;
        return plan(data);
    };
    EXPECT_TRUE(looksLike(after(hour), after(hour + 1)));
    EXPECT_FALSE(looksLike(after(hour), after(hour + 60)));
    EXPECT_FALSE(looksLike(after(8 * hour), after(8 * hour + 1))) << "over-time shows at once";
    EXPECT_FALSE(looksLike(after(0), after(1))) << "so does the beginning";
}

} // namespace
