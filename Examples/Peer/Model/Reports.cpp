// SPDX-License-Identifier: MIT
#include "Peer/Model/Reports.h"

#include "Peer/Model/Day.h"
#include "Peer/Model/RecordJSON.h"
#include "Peer/Model/Tracker.h"

#include <QHash>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor::peer {

QJsonArray taskReport(const Tracker& tracker, platform::Date now)
{
    const Day today = Day::containing(now);
    QHash<QString, double> secondsToday;
    QSet<QString> running;
    for (const TimeEntry& entry : tracker.entries()) {
        secondsToday[entry.taskID] += secondsWithin(entry, today, now);
        if (entry.isRunning())
            running.insert(entry.taskID);
    }
    QJsonArray report;
    for (const Task& task : tracker.tasks()) {
        QJsonObject object = toJSON(task);
        object["id"_L1] = task.id;
        object["running"_L1] = running.contains(task.id);
        object["secondsToday"_L1] = secondsToday.value(task.id);
        report.append(object);
    }
    return report;
}

QJsonObject statusReport(const Tracker& tracker, platform::Date now)
{
    QJsonArray running;
    for (const TimeEntry& entry : tracker.runningEntries()) {
        const Task* const task = tracker.task(entry.taskID);
        QJsonObject object = task ? toJSON(*task) : QJsonObject();
        object["id"_L1] = entry.taskID;
        object["start"_L1] = platform::secondsSince1970(entry.start);
        object["seconds"_L1] = std::max(0.0, (now - entry.start).count());
        running.append(object);
    }
    const Day today = Day::containing(now);
    double secondsToday = 0;
    for (const TimeEntry& entry : tracker.entries())
        secondsToday += secondsWithin(entry, today, now);
    QJsonObject settings;
    for (const SettingField& field : settingFields())
        settings[field.key] = toJSON(tracker.settings(), field);
    return {{"running"_L1, running}, {"secondsToday"_L1, secondsToday}, {"settings"_L1, settings}};
}

} // namespace quor::peer
