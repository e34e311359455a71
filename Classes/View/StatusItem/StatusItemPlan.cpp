// SPDX-License-Identifier: MIT
#include "View/StatusItem/StatusItemPlan.h"

#include "Platform/Text/GraphemeClusters.h"
#include "ToolKit/Colors/ColorOperations.h"
#include "View/StatusItem/TaskText.h"

#include <QDateTime>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace quor::helper {

namespace {

constexpr double faint = 0.4;

QColor activeColor(const MenubarStatusItemData& data, double alpha)
{
    return toolkit::colorWithHexValue(static_cast<quint32>(*data.activeColor & 0xFFFFFF), alpha);
}

StatusItemPlan::Symbol symbol(const MenubarStatusItemData& data, platform::Date now)
{
    using Ring = StatusItemPlan::Ring;
    if (!data.menuBarShowDayProgress) {
        if (!data.activeColor)
            return std::monostate{};
        return StatusItemPlan::Dot{activeColor(data, 1)};
    }
    const double progress = dayProgress(data, now);
    if (data.activeColor)
        return Ring{progress, activeColor(data, 1), activeColor(data, faint), LiveTag};
    return Ring{progress, QColor::fromRgbF(1, 1, 1, faint), QColor(Qt::white), CutoutTag};
}

// A ring that is punched out has no colour of its own, so its over-time arc is drawn above the pill.
std::optional<StatusItemPlan::Ring> overTime(const StatusItemPlan::Symbol& symbol)
{
    const auto* ring = std::get_if<StatusItemPlan::Ring>(&symbol);
    if (!ring || ring->tag != CutoutTag || ring->progress <= 1)
        return std::nullopt;
    return StatusItemPlan::Ring{ring->progress, QColor(Qt::transparent), std::nullopt, LiveTag};
}

std::optional<QString> timeText(
    const MenubarStatusItemData& data, platform::Date now, const toolkit::DurationFormatter& formatter)
{
    constexpr double leastTimeOfEarlierTimers = 60;
    const double running = runningTotal(data, now);
    if (!data.menuBarShowRunningTimer)
        return data.menuBarShowDailyTotal ? std::optional(dailyTotalText(data, now, formatter))
                                          : std::nullopt;
    if (!data.menuBarShowDailyTotal)
        return running > 0 ? std::optional(formatter.string(running, true)) : std::nullopt;
    const QString total = dailyTotalText(data, now, formatter);
    if (!data.trackerActive || !(data.inactiveTotalTimeToday > leastTimeOfEarlierTimers))
        return total;
    return formatter.string(running, true) + QStringLiteral(u" \u2215 ") + total;
}

StatusItemPlan::ClockFace clockFace(platform::Date now)
{
    const auto milliseconds = std::chrono::floor<std::chrono::milliseconds>(now.time_since_epoch());
    const QTime time = QDateTime::fromMSecsSinceEpoch(milliseconds.count()).time();
    return time.isValid() ? StatusItemPlan::ClockFace{time.hour(), time.minute()}
                          : StatusItemPlan::ClockFace{};
}

bool looksLike(const StatusItemPlan::Ring& ring, const StatusItemPlan::Ring& other)
{
    // A sixty-fourth of a pixel on the status item's ring at a scale of 2.
    constexpr double visibleTurn = 1.0 / 4096;
    return std::abs(ring.progress - other.progress) < visibleTurn
        && (ring.progress > 1) == (other.progress > 1) && (ring.progress > 0) == (other.progress > 0)
        && ring.color == other.color && ring.backgroundColor == other.backgroundColor
        && ring.tag == other.tag;
}

} // namespace

double runningTotal(const MenubarStatusItemData& data, platform::Date now)
{
    const double seconds = platform::secondsSince1970(now);
    double total = 0;
    for (const double start : data.activeStartTimes)
        total += std::abs(start - seconds);
    return total;
}

double dayProgress(const MenubarStatusItemData& data, platform::Date now)
{
    constexpr double upperBound = 4 * std::numbers::pi;
    constexpr double offZero = 1e-16;
    const double done = data.nonWorkingTime + runningTotal(data, now) + data.inactiveTotalTimeToday;
    const double progress = std::min(done / (data.expectedWorkingTime + offZero), upperBound);
    return std::isfinite(progress) ? progress : 0; // sums of times at the end of the range have no meaning
}

QString dailyTotalText(
    const MenubarStatusItemData& data, platform::Date now, const toolkit::DurationFormatter& formatter)
{
    return formatter.string(data.inactiveTotalTimeToday + runningTotal(data, now), true);
}

StatusItemPlan statusItemPlan(const MenubarStatusItemData& data, platform::Date now,
    const toolkit::DurationFormatter& formatter, bool hasNotch)
{
    constexpr qsizetype leastCharactersOfTwoLines = 6;
    StatusItemPlan plan;
    plan.symbol = symbol(data, now);
    plan.overTime = overTime(plan.symbol);
    plan.timeText = timeText(data, now, formatter);
    if (data.menuBarShowActiveTask && data.taskName)
        plan.taskText = taskText(*data.taskName, data.activeStartTimes.size());
    plan.twoLines = hasNotch && plan.taskText && plan.timeText
        && platform::GraphemeClusters::count(*plan.timeText) >= leastCharactersOfTwoLines;
    if (plan.taskText || plan.timeText)
        plan.heightPadding = plan.twoLines ? HeightPadding::double_ : HeightPadding::single;
    else if (std::holds_alternative<std::monostate>(plan.symbol))
        plan.clockFace = clockFace(now);
    return plan;
}

bool looksLike(const StatusItemPlan::Symbol& symbol, const StatusItemPlan::Symbol& other)
{
    const auto* ring = std::get_if<StatusItemPlan::Ring>(&symbol);
    const auto* otherRing = std::get_if<StatusItemPlan::Ring>(&other);
    return ring && otherRing ? looksLike(*ring, *otherRing) : symbol == other;
}

bool looksLike(const StatusItemPlan& plan, const StatusItemPlan& other)
{
    if (!looksLike(plan.symbol, other.symbol) || plan.overTime.has_value() != other.overTime.has_value())
        return false;
    StatusItemPlan same = plan;
    same.symbol = other.symbol;
    same.overTime = other.overTime; // of the symbol's progress
    return same == other;
}

} // namespace quor::helper
