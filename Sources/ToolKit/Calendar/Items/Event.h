// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/CalendarItem.h"

#include <QString>

#include <optional>

namespace quor::toolkit {

/// The values of an event.
struct EventFields {
    QString title;
    QString notes;
    QString location;
    QString url;
    Date startDate;
    Date endDate; ///< the first moment after the event; for whole days, the midnight after the last one
    bool isAllDay = false; ///< from a midnight to a midnight of the machine's time zone
    /// An IANA name, "UTC", or a name that the file defines. Empty for a floating time, which means the
    /// same hour of the day in every zone.
    QString timeZone;
    QString recurrenceRule; ///< the value of RRULE, as in "FREQ=WEEKLY;COUNT=5"; empty: happens once

    friend bool operator==(const EventFields&, const EventFields&) = default;
};

/// An event that happens once, or one occurrence of a series.
class Event final : public CalendarItem<EventFields> {
public:
    using CalendarItem::CalendarItem;

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

    /// Whether this is an occurrence of a series, by rule or by a list of dates.
    [[nodiscard]] bool isRecurring() const { return occurrenceDate().has_value(); }
    /// The start that the series gives to this occurrence. It stays the same if this occurrence alone is
    /// moved to another time. Returns `nullopt` for an event that happens once.
    [[nodiscard]] std::optional<Date> occurrenceDate() const
    {
        return read([](const ItemState<EventFields>& state) { return state.place.occurrence; });
    }
};

} // namespace quor::toolkit
