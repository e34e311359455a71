// SPDX-License-Identifier: MIT
#include "Peer/Model/StatusRecord.h"

#include "Peer/Model/Day.h"
#include "Peer/Model/Tracker.h"

#include <algorithm>

namespace quor::peer {

namespace {

void addSettings(MenubarStatusItemData& record, const Settings& settings)
{
    record.expectedWorkingTime = settings.expectedWorkingTime;
    record.nonWorkingTime = settings.nonWorkingTime;
    record.menuBarShowActiveTask = settings.menuBarShowActiveTask;
    record.menuBarShowDayProgress = settings.menuBarShowDayProgress;
    record.menuBarShowRunningTimer = settings.menuBarShowRunningTimer;
    record.menuBarShowDailyTotal = settings.menuBarShowDailyTotal;
}

} // namespace

MenubarStatusItemData statusRecord(const Tracker& tracker, platform::Date now)
{
    MenubarStatusItemData record;
    addSettings(record, tracker.settings());
    const Day today = Day::containing(now);
    for (const TimeEntry& entry : tracker.entries()) {
        if (!entry.isRunning())
            record.inactiveTotalTimeToday += secondsWithin(entry, today, now);
    }
    const auto running = tracker.runningEntries();
    for (const TimeEntry& entry : running)
        record.activeStartTimes.push_back(
            platform::secondsSince1970(std::clamp(entry.start, today.start, now)));
    record.trackerActive = !running.empty();
    if (!running.empty()) {
        if (const Task* const task = tracker.task(running.back().taskID)) {
            record.taskName = task->name;
            record.activeColor = task->color;
        }
    }
    return record;
}

} // namespace quor::peer
