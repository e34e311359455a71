// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Clock.h"
#include "ToolKit/Calendar/Items/EventCalendar.h"
#include "ToolKit/Calendar/Items/ItemPlace.h"

#include <QString>

#include <memory>
#include <mutex>
#include <optional>
#include <type_traits>
#include <utility>

namespace quor::toolkit {

using platform::Date;

/// What a reminder says.
struct ReminderFields {
    QString title;
    QString notes;
    std::optional<Date> dueDate; ///< of a reminder for a whole day, the midnight at which that day begins
    bool isCompleted = false;
    std::optional<Date> completionDate; ///< none for one that is not completed, or whose file does not tell
    int priority = 0; ///< 1 is the highest, 9 the lowest, 0 none

    friend bool operator==(const ReminderFields&, const ReminderFields&) = default;
};

/// A reminder as it was when it was read or made. Changes are the object's own until
/// `EventStore::saveReminder`, which writes as `saveEvent` does. Made by an `EventStore`, held in shared
/// pointers. Any thread.
class Reminder final {
public:
    [[nodiscard]] QString calendarItemIdentifier() const
    {
        return locked([&] { return place_.uid; });
    }

    [[nodiscard]] std::shared_ptr<EventCalendar> calendar() const
    {
        return locked([&] { return calendar_; });
    }
    void setCalendar(std::shared_ptr<EventCalendar> calendar)
    {
        locked([&] { calendar_ = std::move(calendar); });
    }

    [[nodiscard]] QString title() const { return get(&ReminderFields::title); }
    void setTitle(const QString& title) { set(&ReminderFields::title, title); }
    [[nodiscard]] QString notes() const { return get(&ReminderFields::notes); }
    void setNotes(const QString& notes) { set(&ReminderFields::notes, notes); }
    [[nodiscard]] std::optional<Date> dueDate() const { return get(&ReminderFields::dueDate); }
    void setDueDate(std::optional<Date> date) { set(&ReminderFields::dueDate, date); }
    [[nodiscard]] bool isCompleted() const { return get(&ReminderFields::isCompleted); }
    /// Sets the completion date to now, or clears it.
    void setCompleted(bool isCompleted)
    {
        locked([&] {
            fields_.isCompleted = isCompleted;
            fields_.completionDate
                = isCompleted ? std::optional<Date>(platform::SystemClock().now()) : std::nullopt;
        });
    }
    [[nodiscard]] std::optional<Date> completionDate() const { return get(&ReminderFields::completionDate); }
    /// A date completes the reminder, none reopens it.
    void setCompletionDate(std::optional<Date> date)
    {
        locked([&] {
            fields_.isCompleted = date.has_value();
            fields_.completionDate = date;
        });
    }
    [[nodiscard]] int priority() const { return get(&ReminderFields::priority); }
    void setPriority(int priority) { set(&ReminderFields::priority, priority); }

    [[nodiscard]] ReminderFields fields() const
    {
        return locked([&] { return fields_; });
    }

private:
    friend class EventStore;

    template <class Access>
    std::invoke_result_t<Access&> locked(Access access) const
    {
        const std::scoped_lock lock(mutex_);
        return access();
    }
    template <class T>
    T get(T ReminderFields::*field) const
    {
        return locked([&] { return fields_.*field; });
    }
    template <class T>
    void set(T ReminderFields::*field, const T& value)
    {
        locked([&] { fields_.*field = value; });
    }

    mutable std::mutex mutex_;
    ReminderFields fields_;
    ReminderFields saved_; ///< as read or as last saved
    ItemPlace place_;
    std::shared_ptr<EventCalendar> calendar_;
};

} // namespace quor::toolkit
