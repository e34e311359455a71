// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Clock.h"
#include "ToolKit/Calendar/Items/EventCalendar.h"

#include <QByteArray>
#include <QString>

#include <memory>
#include <mutex>
#include <optional>
#include <utility>

namespace quor::toolkit {

using platform::Date;

/// Where an item is stored.
struct ItemPlace {
    QString uid;
    QString calendarIdentifier; ///< empty before the first save
    QByteArray file; ///< the name of the file in the calendar's folder, when it was last read or saved
    std::optional<Date> occurrence; ///< the start that identifies the occurrence in its series
};

/// What an `Event` or a `Reminder` holds.
template <class Fields>
struct ItemState {
    Fields fields;
    Fields saved; ///< as last read or saved
    ItemPlace place;
    std::shared_ptr<EventCalendar> calendar;
};

/// Base of `Event` and `Reminder`: an item of a calendar. The object has the values that the item had when it
/// was read or created; later changes of the file do not reach it. Setters change only this object until
/// `EventStore` saves it. A save writes only the fields that were changed here, so changes of other programs
/// in other fields are kept. Held in shared pointers. Any thread.
template <class Fields>
class CalendarItem {
public:
    /// For `EventStore`, see `EventStore::newEvent` and `EventStore::newReminder`.
    explicit CalendarItem(ItemState<Fields> state)
        : state_(std::move(state))
    {
    }
    CalendarItem(const CalendarItem&) = delete;
    CalendarItem& operator=(const CalendarItem&) = delete;

    /// The UID: the same for all occurrences of a series.
    [[nodiscard]] QString calendarItemIdentifier() const
    {
        return read([](const ItemState<Fields>& state) { return state.place.uid; });
    }

    /// Null for a new item before `setCalendar`.
    [[nodiscard]] std::shared_ptr<EventCalendar> calendar() const
    {
        return read([](const ItemState<Fields>& state) { return state.calendar; });
    }
    /// If the item is saved already, the next save moves it to this calendar. An occurrence of a series is
    /// moved together with its whole series.
    void setCalendar(std::shared_ptr<EventCalendar> calendar)
    {
        const std::scoped_lock lock(mutex_);
        std::swap(state_.calendar, calendar); // The previous one is released after the lock.
    }

    [[nodiscard]] QString title() const { return get(&Fields::title); }
    void setTitle(const QString& title) { set(&Fields::title, title); }
    [[nodiscard]] QString notes() const { return get(&Fields::notes); }
    void setNotes(const QString& notes) { set(&Fields::notes, notes); }

    /// Copies of all fields at one moment, so that no other thread changes some of them in between.
    [[nodiscard]] Fields fields() const
    {
        return read([](const ItemState<Fields>& state) { return state.fields; });
    }

protected:
    ~CalendarItem() = default;

    template <class Read>
    auto read(Read read) const
    {
        const std::scoped_lock lock(mutex_);
        return read(state_);
    }
    template <class Change>
    void change(Change change)
    {
        const std::scoped_lock lock(mutex_);
        change(state_.fields);
    }
    template <class T>
    T get(T Fields::*field) const
    {
        return read([&](const ItemState<Fields>& state) { return state.fields.*field; });
    }
    template <class T>
    void set(T Fields::*field, const T& value)
    {
        change([&](Fields& fields) { fields.*field = value; });
    }

private:
    friend class EventStore;
    template <class Policy>
    friend class ItemSaving;

    [[nodiscard]] ItemState<Fields> state() const
    {
        return read([](const ItemState<Fields>& state) { return state; });
    }
    /// Notes that the fields `written` were saved, and will be read back as `saved`. Fields that were set
    /// in the meantime stay.
    void setSaved(const Fields& written, const Fields& saved, const ItemPlace& place)
    {
        const std::scoped_lock lock(mutex_);
        state_.place = place;
        state_.saved = saved;
        if (state_.fields == written)
            state_.fields = saved;
    }

    mutable std::mutex mutex_;
    ItemState<Fields> state_;
};

} // namespace quor::toolkit
