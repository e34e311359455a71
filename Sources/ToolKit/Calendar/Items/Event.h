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

/// What an event says.
struct EventFields {
    QString title;
    QString notes;
    QString location;
    QString url;
    Date startDate;
    Date endDate; ///< not part of the event any more; of a whole day, the midnight behind it
    bool isAllDay = false; ///< whole days: from a midnight to a midnight of the machine's time zone
    QString
        timeZone; ///< an IANA name, "UTC", a name that the file defines, or empty: the zone of whoever looks
    QString recurrenceRule; ///< as behind "RRULE:", for instance "FREQ=WEEKLY;COUNT=5"; empty: happens once

    friend bool operator==(const EventFields&, const EventFields&) = default;
};

/// An event, or one of a series, as it was when it was read or made. Changes are the object's own until
/// `EventStore::saveEvent`, which writes those fields that differ from what was read: what other programs
/// changed meanwhile in other fields stays. Made by an `EventStore`, held in shared pointers. Any thread.
class Event final {
public:
    /// The UID: the same for all events of a series.
    [[nodiscard]] QString calendarItemIdentifier() const
    {
        return locked([&] { return place_.uid; });
    }

    [[nodiscard]] std::shared_ptr<EventCalendar> calendar() const
    {
        return locked([&] { return calendar_; });
    }
    /// Another calendar for a saved event moves it, with its whole series, when it is saved.
    void setCalendar(std::shared_ptr<EventCalendar> calendar)
    {
        locked([&] { calendar_ = std::move(calendar); });
    }

    [[nodiscard]] QString title() const { return get(&EventFields::title); }
    void setTitle(const QString& title) { set(&EventFields::title, title); }
    [[nodiscard]] QString notes() const { return get(&EventFields::notes); }
    void setNotes(const QString& notes) { set(&EventFields::notes, notes); }
    [[nodiscard]] QString location() const { return get(&EventFields::location); }
    void setLocation(const QString& location) { set(&EventFields::location, location); }
    [[nodiscard]] QString url() const { return get(&EventFields::url); }
    void setUrl(const QString& url) { set(&EventFields::url, url); }
    [[nodiscard]] Date startDate() const { return get(&EventFields::startDate); }
    void setStartDate(Date date) { set(&EventFields::startDate, date); }
    [[nodiscard]] Date endDate() const { return get(&EventFields::endDate); }
    void setEndDate(Date date) { set(&EventFields::endDate, date); }
    [[nodiscard]] bool isAllDay() const { return get(&EventFields::isAllDay); }
    void setAllDay(bool isAllDay) { set(&EventFields::isAllDay, isAllDay); }
    /// A new event has the machine's zone.
    [[nodiscard]] QString timeZone() const { return get(&EventFields::timeZone); }
    void setTimeZone(const QString& timeZone) { set(&EventFields::timeZone, timeZone); }
    [[nodiscard]] QString recurrenceRule() const { return get(&EventFields::recurrenceRule); }
    void setRecurrenceRule(const QString& rule) { set(&EventFields::recurrenceRule, rule); }

    /// Whether it is one of a series, by rule or by a list of dates.
    [[nodiscard]] bool isRecurring() const
    {
        return locked([&] { return place_.isRecurring; });
    }
    /// When this one of a series would start if it had not been moved; none for an event that happens once.
    [[nodiscard]] std::optional<Date> occurrenceDate() const
    {
        return locked([&] { return place_.occurrence; });
    }

    [[nodiscard]] EventFields fields() const
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
    T get(T EventFields::*field) const
    {
        return locked([&] { return fields_.*field; });
    }
    template <class T>
    void set(T EventFields::*field, const T& value)
    {
        locked([&] { fields_.*field = value; });
    }

    mutable std::mutex mutex_;
    EventFields fields_;
    EventFields saved_; ///< as read or as last saved
    ItemPlace place_;
    std::shared_ptr<EventCalendar> calendar_;
};

} // namespace quor::toolkit
