// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/Event.h"
#include "ToolKit/Calendar/Items/ItemZone.h"
#include "ToolKit/Calendar/Items/Reminder.h"

#include <map>
#include <memory>
#include <vector>

namespace quor::toolkit {

/// The recurrence of a series, as its file describes it.
struct Recurrence {
    ItemZone zone;
    icaltimetype first; ///< the start of the master event, in `zone`
    int days = 0; ///< the length, if its events are whole days
    std::vector<QByteArray> rules; ///< values of RRULE
    std::vector<Date> added; ///< RDATE
    std::vector<Date> removed; ///< EXDATE, sorted
    std::map<Date, EventFields> overrides; ///< by the start of the occurrence that each replaces
};

/// An event that happens once, a series, or an override whose series is not in the file.
struct EventRecord {
    QString uid;
    EventFields fields; ///< for a series, the fields of its first occurrence
    std::optional<Date> occurrence; ///< for an override, the start of the occurrence that it replaces
    std::shared_ptr<const Recurrence> recurrence; ///< null for all but a series
};

struct ReminderRecord {
    QString uid;
    ReminderFields fields;
};

/// The items of one file.
struct FileRecords {
    std::vector<EventRecord> events;
    std::vector<ReminderRecord> reminders;
};

} // namespace quor::toolkit
