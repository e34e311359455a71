// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/CalendarItem.h"

#include <QString>

#include <optional>

namespace quor::toolkit {

/// The values of a reminder.
struct ReminderFields {
    QString title;
    QString notes;
    std::optional<Date> dueDate; ///< for a reminder of a whole day, the midnight at which that day begins
    bool isCompleted = false;
    std::optional<Date> completionDate; ///< `nullopt` if it is not completed, or its file has no date
    int priority = 0; ///< 1 is the highest, 9 the lowest, 0 means no priority

    friend bool operator==(const ReminderFields&, const ReminderFields&) = default;
};

/// A reminder.
class Reminder final : public CalendarItem<ReminderFields> {
public:
    using CalendarItem::CalendarItem;

    [[nodiscard]] std::optional<Date> dueDate() const { return get(&ReminderFields::dueDate); }
    void setDueDate(std::optional<Date> date) { set(&ReminderFields::dueDate, date); }
    [[nodiscard]] bool isCompleted() const { return get(&ReminderFields::isCompleted); }
    /// Sets the completion date to now, or clears it.
    void setCompleted(bool isCompleted)
    {
        setCompletionDate(isCompleted ? std::optional<Date>(platform::SystemClock().now()) : std::nullopt);
    }
    [[nodiscard]] std::optional<Date> completionDate() const { return get(&ReminderFields::completionDate); }
    /// A date completes the reminder, `nullopt` reopens it.
    void setCompletionDate(std::optional<Date> date)
    {
        change([&](ReminderFields& fields) {
            fields.isCompleted = date.has_value();
            fields.completionDate = date;
        });
    }
    [[nodiscard]] int priority() const { return get(&ReminderFields::priority); }
    void setPriority(int priority) { set(&ReminderFields::priority, priority); }
};

} // namespace quor::toolkit
