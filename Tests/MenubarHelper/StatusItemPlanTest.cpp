// SPDX-License-Identifier: MIT
#include "View/StatusItemPlan.h"
#include "View/TaskText.h"

#include "Support/TestClock.h"

#include <QDateTime>
#include <QElapsedTimer>

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
    struct Case {
        QString name;
        std::size_t timers;
        QString text;
    };
    const std::vector<Case> cases{
        {u"Design"_s, 0, u"Design"_s},
        {u"Design"_s, 1, u"Design"_s},
        {u"Design"_s, 2, u"Design+1"_s},
        {u" Fix #12 * 3 "_s, 0, u"Fix 12  3"_s},
        {u"\t\u00A0\u3000Café\u2003"_s, 0, u"Café"_s},
        {u"\nline\n"_s, 0, u"\nline\n"_s},
        {u"\U0001F600 \U0001F468\u200D\U0001F469\u200D\U0001F467 \U0001F1E9\U0001F1EA"_s, 3, u"+2"_s},
        {u""_s, 0, u""_s},
        {u"a\U0001F44D\U0001F3FDb"_s, 0, u"ab"_s},
        {u"1\uFE0F\u20E3 2\u0301 3"_s, 0, u"3"_s}, // only bare digits are digits
        {u"e\u0301\u00A9\u2122x"_s, 0, u"e\u0301x"_s},
        {u"\u263A\uFE0FOK"_s, 0, u"OK"_s},
        {u"e\U0001F3FD"_s, 0, u"e\U0001F3FD"_s}, // a modifier that is not the first of its character
        {u"設計\uD55C\uAE00"_s, 0, u"設計\uD55C\uAE00"_s},
        {u"x"_s + QChar(0xD83D) + u"y"_s, 0, u"x"_s + QChar(0xD83D) + u"y"_s},
    };
    for (const auto& [name, timers, text] : cases)
        EXPECT_EQ(taskText(name, timers), text) << qPrintable(name);
}

TEST(TaskText, IsLinearInHugeNames)
{
    const auto seconds = [](const QString& name) {
        QElapsedTimer clock;
        clock.start();
        (void)taskText(name, 1);
        return double(clock.nsecsElapsed()) * 1e-9;
    };
    for (const QString& character : {u"a"_s, u"\U0001F600"_s, u" "_s, u"e\u0301"_s, u"\u200D"_s}) {
        const double small = std::max(seconds(character.repeated(100'000)), 1e-3);
        EXPECT_LT(seconds(character.repeated(1'000'000)), 60 * small) << qPrintable(character);
    }
}

TEST(StatusItemPlan, SumsTimesAndBoundsTheProgress)
{
    struct Case {
        double expected, nonWorking, inactive;
        std::vector<double> starts;
        double progress;
    };
    constexpr double bound = 4 * std::numbers::pi;
    constexpr double huge = std::numeric_limits<double>::max();
    const std::vector<Case> cases{
        {8 * hour, 0, 0, {}, 0},
        {8 * hour, hour, 2 * hour, {now - hour}, 0.5},
        {8 * hour, 0, 4 * hour, {now - hour, now + 3 * hour}, 1},
        {hour, 0, 2 * hour, {}, 2},
        {0, 0, 0, {}, 0},
        {0, 0, 1, {}, bound},
        {1, huge, huge, {}, bound},
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

TEST(StatusItemPlan, ChoosesTheSymbol)
{
    MenubarStatusItemData data;
    data.expectedWorkingTime = 8 * hour;
    data.inactiveTotalTimeToday = 4 * hour;
    EXPECT_EQ(plan(data).symbol, StatusItemPlan::Symbol());

    data.menuBarShowDayProgress = true;
    const QColor white(Qt::white);
    const QColor faintWhite = QColor::fromRgbF(1, 1, 1, 0.4F);
    EXPECT_EQ(
        plan(data).symbol, StatusItemPlan::Symbol(StatusItemPlan::Ring{0.5, faintWhite, white, CutoutTag}));

    data.activeColor = 0xAB'00'BF'F9; // what is above 24 bits does not count
    const QColor blue(0x00, 0xBF, 0xF9);
    const QColor faintBlue = QColor::fromRgbF(0, blue.greenF(), blue.blueF(), 0.4F);
    EXPECT_EQ(plan(data).symbol, StatusItemPlan::Symbol(StatusItemPlan::Ring{0.5, blue, faintBlue, LiveTag}));

    data.menuBarShowDayProgress = false;
    EXPECT_EQ(plan(data).symbol, StatusItemPlan::Symbol(StatusItemPlan::Dot{blue}));
}

TEST(StatusItemPlan, ShowsOverTimeLiveAboveTheCutOutRingOnly)
{
    MenubarStatusItemData data;
    data.menuBarShowDayProgress = true;
    data.expectedWorkingTime = 8 * hour;
    data.inactiveTotalTimeToday = 8 * hour;
    EXPECT_FALSE(plan(data).overTime) << "exactly done";
    data.inactiveTotalTimeToday = 10 * hour;
    EXPECT_EQ(
        plan(data).overTime, (StatusItemPlan::Ring{1.25, QColor(Qt::transparent), std::nullopt, LiveTag}));
    data.activeColor = 0xFF0000;
    EXPECT_FALSE(plan(data).overTime);
}

TEST(StatusItemPlan, ChoosesTheTimeText)
{
    struct Case {
        bool running, total, active;
        double inactive;
        std::vector<double> starts;
        std::optional<QString> text;
    };
    const std::vector<Case> cases{
        {false, false, true, hour, {now - hour}, std::nullopt},
        {false, true, false, 0, {}, u"00:00"_s},
        {false, true, true, hour, {now - hour / 2}, u"01:30"_s},
        {true, false, true, hour, {}, std::nullopt},
        {true, false, true, hour, {now}, std::nullopt},
        {true, false, true, hour, {now - 90, now - 90}, u"00:03"_s},
        {true, true, true, hour, {now - hour}, u"01:00 \u2215 02:00"_s},
        {true, true, true, 60, {now - hour}, u"01:01"_s},
        {true, true, false, hour, {}, u"01:00"_s},
        {true, true, true, std::numeric_limits<double>::max(), {now, -1e308, -1e308},
            u"00:00 \u2215 00:00"_s},
    };
    for (const auto& [running, total, active, inactive, starts, text] : cases) {
        MenubarStatusItemData data;
        data.menuBarShowRunningTimer = running;
        data.menuBarShowDailyTotal = total;
        data.trackerActive = active;
        data.inactiveTotalTimeToday = inactive;
        data.activeStartTimes = starts;
        EXPECT_EQ(plan(data).timeText, text) << running << total << active << inactive;
    }
}

TEST(StatusItemPlan, LaysTextsOutByNotchAndLength)
{
    struct Case {
        bool notch, task, combined;
        bool twoLines;
    };
    // "01:30" has five characters, "01:00 / 01:30" has more.
    const std::vector<Case> cases{
        {true, true, true, true},
        {true, true, false, false},
        {false, true, true, false},
        {true, false, true, false},
    };
    for (const auto& [notch, task, combined, twoLines] : cases) {
        MenubarStatusItemData data;
        data.taskName = u"Design"_s;
        data.menuBarShowActiveTask = task;
        data.menuBarShowDailyTotal = true;
        data.menuBarShowRunningTimer = combined;
        data.trackerActive = true;
        data.inactiveTotalTimeToday = hour / 2;
        data.activeStartTimes = {now - hour};
        const StatusItemPlan planned = plan(data, notch);
        EXPECT_EQ(planned.twoLines, twoLines) << notch << task << combined;
        EXPECT_EQ(planned.taskText.has_value(), task);
        EXPECT_EQ(planned.heightPadding, twoLines ? HeightPadding::double_ : HeightPadding::single);
    }
}

TEST(StatusItemPlan, ShowsTheLocalTimeOnlyWhereNothingElseIs)
{
    MenubarStatusItemData data;
    const QTime local = QDateTime::fromSecsSinceEpoch(qint64(now)).time();
    EXPECT_EQ(plan(data).clockFace, (StatusItemPlan::ClockFace{local.hour(), local.minute()}));
    EXPECT_EQ(plan(data).heightPadding, std::nullopt);
    data.menuBarShowActiveTask = true;
    data.menuBarShowRunningTimer = true;
    EXPECT_TRUE(plan(data).clockFace) << "flags alone show nothing";
    data.taskName = u"\U0001F600"_s;
    EXPECT_EQ(plan(data).taskText, u""_s);
    EXPECT_FALSE(plan(data).clockFace) << "an empty label is one";
    data.taskName.reset();
    data.activeColor = 0;
    EXPECT_FALSE(plan(data).clockFace);
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
    const StatusItemPlan before = after(hour);
    data.menuBarShowDailyTotal = true;
    EXPECT_FALSE(looksLike(before, after(hour + 1)));
}

} // namespace
