// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <cstdint>
#include <optional>
#include <vector>

namespace quor {

/// What the main application publishes for the status item. Durations in seconds, moments in
/// seconds since 1970-01-01 00:00:00 UTC. As constructed it is the record of a tracker at rest,
/// which also stands for a missing or unreadable one.
struct MenubarStatusItemData {
    double expectedWorkingTime = 0; ///< work expected today; divisor of the day progress
    double nonWorkingTime = 0; ///< counts as done today without being tracked
    double inactiveTotalTimeToday = 0; ///< tracked today by timers that do not run now
    bool trackerActive = false;
    std::optional<std::uint64_t> activeColor; ///< of the running task, 0xRRGGBB
    std::vector<double> activeStartTimes; ///< one moment for each running timer
    std::optional<QString> taskName;
    bool menuBarShowActiveTask = false;
    bool menuBarShowDayProgress = false;
    bool menuBarShowRunningTimer = false;
    bool menuBarShowDailyTotal = false;

    friend bool operator==(const MenubarStatusItemData&, const MenubarStatusItemData&) = default;
};

} // namespace quor
