// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/Event.h"
#include "ToolKit/Calendar/Items/ItemZone.h"
#include "ToolKit/Calendar/Items/Reminder.h"

#include <map>
#include <memory>
#include <vector>

namespace quor::toolkit {

/// How an event repeats, as its file tells.
struct Recurrence {
    ItemZone zone;
    icaltimetype first; ///< the master's start, in the zone
    int days = 0; ///< length of an event of whole days
    std::vector<QByteArray> rules;
    std::vector<Date> added; ///< RDATE
    std::vector<Date> removed; ///< EXDATE, sorted
    std::map<Date, EventFields> overrides; ///< by the start that they replace
};

/// What is kept of an event. `fields` of a series are its first one's.
struct EventRecord {
    QString uid;
    EventFields fields;
    std::optional<Date> occurrence; ///< of one whose series is not in the file
    std::shared_ptr<const Recurrence> recurrence; ///< null: happens once
};

struct ReminderRecord {
    QString uid;
    ReminderFields fields;
};

/// What is kept of a file.
struct FileRecords {
    std::vector<EventRecord> events;
    std::vector<ReminderRecord> reminders;
};

} // namespace quor::toolkit
