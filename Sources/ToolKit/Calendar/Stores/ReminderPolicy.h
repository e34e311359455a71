// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Files/CalendarFolder.h"
#include "ToolKit/Calendar/Items/ReminderEdits.h"

#include <algorithm>
#include <optional>

namespace quor::toolkit {

/// How `ItemSaving` stages a reminder.
struct ReminderPolicy {
    using Item = Reminder;
    using Fields = ReminderFields;
    static constexpr QStringView name = u"reminder";

    [[nodiscard]] static EventStoreResult saveInPlace(
        CalendarFolder& folder, const ReminderChange& change, const ItemPlace& place)
    {
        return folder.stage(place.file, [change](ItemFile& file) { return saveItem(file, change); });
    }
    [[nodiscard]] static ItemEdit removal(const ReminderChange& change)
    {
        return [change](ItemFile& file) { return removeItem(file, change); };
    }
    /// Returns the fields as they will be read again, `nullopt` if the reminder is not in the records.
    [[nodiscard]] static std::optional<ReminderFields> readBack(
        const FileRecords& records, const ItemPlace& place)
    {
        const auto found = std::ranges::find(records.reminders, place.uid, &ReminderRecord::uid);
        return found == records.reminders.end() ? std::nullopt : std::optional(found->fields);
    }
};

} // namespace quor::toolkit
