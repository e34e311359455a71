// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Stores/EventStoreClient.h"

#include <QFuture>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace quor::toolkit {

/// The user's reminders, for reading.
///
///     ReminderStore store;
///     store.requestAccess([&](bool granted) {
///         store.remindersFor(start, end, std::nullopt, [](const ReminderStore::Reminders& due) { ... });
///     });
///
/// See `EventStoreClient` for threads and access.
class ReminderStore final : public EventStoreClient {
public:
    using Calendars = std::vector<std::shared_ptr<EventCalendar>>;
    using Reminders = std::vector<std::shared_ptr<Reminder>>;

    explicit ReminderStore(EventStoreOptions options = {});

    /// Returns the calendars that hold reminders, by source. Reads on the calling thread.
    [[nodiscard]] Calendars reminderCalendars() const;

    /// Reads the reminders that are not completed and are due in [startDate, endDate), in all calendars if
    /// `calendars` is `nullopt`. Calls `completion` on a thread that the event store owns; there it must not
    /// wait for the main thread, nor destroy this object. Before access was requested, calls it at once, on
    /// the calling thread, with an empty list.
    void remindersFor(Date startDate, Date endDate, const std::optional<Calendars>& calendars,
        std::function<void(const Reminders&)> completion);
    /// The same, as a future.
    [[nodiscard]] QFuture<Reminders> remindersFor(
        Date startDate, Date endDate, const std::optional<Calendars>& calendars = std::nullopt);
};

} // namespace quor::toolkit
