// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Stores/EventStoreClient.h"

#include <QFuture>

#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace quor::toolkit {

/// The user's reminders, to read: lists and what is due.
///
///     ReminderStore store;
///     store.requestAccess([&](bool granted) {
///         store.remindersFor(start, end, std::nullopt, [](const ReminderStore::Reminders& due) { ... });
///     });
///
/// See `EventStoreClient` for threads and access. Reads run on the calling thread or the event store's.
class ReminderStore final : public EventStoreClient {
public:
    using Calendars = std::vector<std::shared_ptr<EventCalendar>>;
    using Reminders = std::vector<std::shared_ptr<Reminder>>;

    explicit ReminderStore(EventStoreOptions options = {});

    /// The calendars that hold reminders, by source.
    [[nodiscard]] Calendars reminderCalendars() const;

    /// Reminders that are not completed and are due in [startDate, endDate), of all calendars if none are
    /// named. Answers on a thread of the event store's own, which must not wait for the main thread nor end
    /// this object; before access was requested at once, on the calling thread, with an empty list.
    void remindersFor(Date startDate, Date endDate, const std::optional<Calendars>& calendars,
        std::function<void(const Reminders&)> completion);
    /// The same, to wait for.
    [[nodiscard]] QFuture<Reminders> remindersFor(
        Date startDate, Date endDate, const std::optional<Calendars>& calendars = std::nullopt);
};

} // namespace quor::toolkit
