// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace quor {

/// The data that the main application publishes for the status item. Durations are in seconds, moments in
/// seconds since 1970-01-01 00:00:00 UTC. A default-constructed record means that nothing is tracked; a
/// missing or unreadable record reads as one.
struct MenubarStatusItemData {
    double expectedWorkingTime = 0; ///< Work expected today. The divisor of the day's progress.
    double nonWorkingTime = 0; ///< The part of today's work that is done without being tracked.
    double inactiveTotalTimeToday = 0; ///< Tracked today by timers that do not run now.
    bool trackerActive = false;
    std::optional<std::uint64_t> activeColor; ///< Of the running task, 0xRRGGBB.
    std::vector<double> activeStartTimes; ///< One moment for each running timer.
    std::optional<QString> taskName;
    bool menuBarShowActiveTask = false;
    bool menuBarShowDayProgress = false;
    bool menuBarShowRunningTimer = false;
    bool menuBarShowDailyTotal = false;

    friend bool operator==(const MenubarStatusItemData&, const MenubarStatusItemData&) = default;
};

} // namespace quor
