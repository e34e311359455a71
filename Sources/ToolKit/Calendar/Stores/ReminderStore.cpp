// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Stores/ReminderStore.h"

#include "ToolKit/Calendar/Stores/AwaitedAnswer.h"

#include <iterator>
#include <utility>

namespace quor::toolkit {

ReminderStore::ReminderStore(EventStoreOptions options)
    : EventStoreClient(EntityType::reminder, QByteArrayLiteral("ReminderQueue"), std::move(options))
{
}

ReminderStore::Calendars ReminderStore::reminderCalendars() const
{
    Calendars list;
    const auto store = eventStore();
    if (!store)
        return list;
    for (const EventSource& source : store->sources()) {
        auto calendars = store->calendars(source, EntityType::reminder);
        std::move(calendars.begin(), calendars.end(), std::back_inserter(list));
    }
    return list;
}

void ReminderStore::remindersFor(Date startDate, Date endDate, const std::optional<Calendars>& calendars,
    std::function<void(const Reminders&)> completion)
{
    if (!completion)
        return;
    const auto store = eventStore();
    if (!store)
        return completion({});
    store->fetchReminders(store->predicateForIncompleteReminders(startDate, endDate, calendars),
        [completion = std::move(completion)](
            const std::optional<Reminders>& reminders) { completion(reminders.value_or(Reminders())); });
}

QFuture<ReminderStore::Reminders> ReminderStore::remindersFor(
    Date startDate, Date endDate, const std::optional<Calendars>& calendars)
{
    return awaitedAnswer<Reminders>(
        [&](auto resume) { remindersFor(startDate, endDate, calendars, std::move(resume)); });
}

} // namespace quor::toolkit
