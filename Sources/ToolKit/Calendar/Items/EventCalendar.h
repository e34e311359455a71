// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/EntityType.h"
#include "ToolKit/Calendar/Items/EventSource.h"

#include <QColor>
#include <QString>

#include <mutex>
#include <optional>
#include <utility>

namespace quor::toolkit {

/// The properties of a calendar, as they were when they were read or made. Setters change only this object
/// until `EventStore::saveCalendar`. Objects that describe the same calendar have equal identifiers. Made by
/// an `EventStore`, held in shared pointers. Any thread.
class EventCalendar final {
public:
    /// "<folder of the source>/<folder of the calendar>". Empty before the first save. A new title does not
    /// change it.
    [[nodiscard]] QString calendarIdentifier() const { return get(&Fields::identifier); }

    [[nodiscard]] QString title() const { return get(&Fields::title); }
    void setTitle(const QString& title) { set(&Fields::title, title); }

    /// Invalid if the calendar has no colour.
    [[nodiscard]] QColor color() const { return get(&Fields::color); }
    void setColor(const QColor& color) { set(&Fields::color, color); }

    /// Returns `nullopt` for a new calendar before `setSource`. Setting another source does not move a saved
    /// calendar.
    [[nodiscard]] std::optional<EventSource> source() const { return get(&Fields::source); }
    void setSource(const EventSource& source) { set(&Fields::source, std::optional(source)); }

    /// Whether the permissions of the calendar's folder allow to write there.
    [[nodiscard]] bool allowsContentModifications() const { return get(&Fields::isWritable); }

    /// Whether the calendar is for items of that type, or holds some now. A calendar is for the type that it
    /// was made for. If another program has made it and says nothing, an empty one is for both types.
    [[nodiscard]] bool allows(EntityType type) const
    {
        return get(type == EntityType::event ? &Fields::holdsEvents : &Fields::holdsReminders);
    }

private:
    friend class EventStore;
    friend class CalendarFolder;

    struct Fields {
        QString identifier;
        QString title;
        QColor color;
        std::optional<EventSource> source;
        bool isWritable = true;
        bool holdsEvents = true;
        bool holdsReminders = true;
    };

    template <class T>
    T get(T Fields::*field) const
    {
        const std::scoped_lock lock(mutex_);
        return fields_.*field;
    }
    template <class T>
    void set(T Fields::*field, const T& value)
    {
        const std::scoped_lock lock(mutex_);
        fields_.*field = value;
    }

    [[nodiscard]] std::pair<Fields, Fields> fieldsAndSaved() const
    {
        const std::scoped_lock lock(mutex_);
        return {fields_, saved_};
    }
    void setSaved(Fields saved, const QString& identifier)
    {
        const std::scoped_lock lock(mutex_);
        fields_.identifier = identifier;
        saved_ = std::move(saved);
    }

    mutable std::mutex mutex_;
    Fields fields_;
    Fields saved_; ///< as read or as last saved
};

} // namespace quor::toolkit
