// SPDX-License-Identifier: MIT
#include "Peer/Model/NextChange.h"

#include "Peer/Model/Day.h"
#include "Peer/Model/Settings.h"

#include <algorithm>
#include <chrono>
#include <cmath>

namespace quor::peer {

namespace {

// Just before the boundary, rounding would show the old text again.
constexpr std::chrono::duration<double> margin = std::chrono::milliseconds(1);

/// By how many seconds `total` must grow for its text to change.
double secondsToTurn(double total, const Settings& settings)
{
    const bool inDays = settings.showWorkingDays && settings.workingDayLengthSeconds > 0;
    if (settings.showDurationInPercent) {
        // Texts are rounded to hundredths, so they change in the middle between two of them.
        const double unit = inDays ? settings.workingDayLengthSeconds : 3600;
        const double hundredth = std::max(1.0, unit / 100);
        return hundredth - std::fmod(total + hundredth / 2, hundredth);
    }
    if (!inDays)
        return 60 - std::fmod(total, 60);
    const double ofDay = std::fmod(total, settings.workingDayLengthSeconds);
    const double toMinute = 60 - std::fmod(ofDay, 60);
    return std::min(toMinute, std::max(1.0, settings.workingDayLengthSeconds - ofDay));
}

} // namespace

platform::Date nextChange(const MenubarStatusItemData& shown, const Settings& settings, platform::Date now)
{
    platform::Date next = Day::containing(now).end;
    const auto timers = static_cast<double>(shown.activeStartTimes.size());
    if (timers > 0) {
        double runningTotal = 0;
        for (const double start : shown.activeStartTimes)
            runningTotal += platform::secondsSince1970(now) - start;
        const auto consider = [&](double total) {
            const std::chrono::duration<double> delay(secondsToTurn(total, settings) / timers);
            next = std::min(next, now + delay);
        };
        if (shown.menuBarShowRunningTimer)
            consider(runningTotal);
        if (shown.menuBarShowDailyTotal || shown.menuBarShowDayProgress)
            consider(shown.inactiveTotalTimeToday + runningTotal);
    }
    return next + margin;
}

} // namespace quor::peer
