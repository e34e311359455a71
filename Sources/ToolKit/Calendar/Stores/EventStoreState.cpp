// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Stores/EventStoreState.h"

#include "ToolKit/Calendar/Items/ItemErrors.h"
#include "ToolKit/Calendar/Stores/CalendarRoot.h"

#include <algorithm>
#include <utility>

namespace quor::toolkit {

namespace {

/// Appends a failure to `failures`. Returns whether no further attempt is needed: the change succeeded, or
/// can never succeed.
bool isSettled(const EventStoreResult& result, std::vector<EventStoreError>& failures)
{
    if (!result)
        return true;
    failures.push_back(*result);
    return isFinal(*result);
}

} // namespace

EventStore::State::State(EventStoreOptions settings)
    : options(std::move(settings))
    , calendars(calendarRoot(options))
{
}

bool EventStore::State::hasAccess(EntityType type) const
{
    return authorizationStatus(type, options) == AuthorizationStatus::fullAccess;
}

bool EventStore::State::hasAnyAccess() const
{
    return hasAccess(EntityType::event) || hasAccess(EntityType::reminder);
}

bool EventStore::State::commitItems(CommitWave wave, std::vector<EventStoreError>& failures)
{
    bool isAnyDone = false;
    for (CalendarFolder* const folder : calendars.folders()) {
        if (std::ranges::find(removals, folder->path()) == removals.end())
            isAnyDone = folder->commit(wave, failures) || isAnyDone;
    }
    return isAnyDone;
}

void EventStore::State::removeCalendars(std::vector<EventStoreError>& failures)
{
    const bool hasRemovals = !removals.empty();
    std::erase_if(removals, [&](const CalendarPath& path) {
        CalendarFolder* const folder = calendars.folder(path);
        if (!folder)
            return isSettled(notFound(path.identifier()), failures);
        if (folder->hasUnfinishedMoves())
            return true; // the calendar stays, as the items would be lost with it
        return isSettled(folder->removeFromDisk(), failures);
    });
    if (hasRemovals)
        calendars.refresh(CalendarTree::Listing::always);
}

EventStore::Result EventStore::State::commit()
{
    std::vector<EventStoreError> failures;
    std::erase_if(propertiesChanges,
        [&](const auto& change) { return isSettled(change.write(calendars.root()), failures); });
    commitItems(CommitWave::additions, failures);
    // An item that moves through several calendars leaves one after the other.
    while (commitItems(CommitWave::removals, failures)) { }
    removeCalendars(failures);
    // An item that was to move into a removed calendar stays where it is.
    while (commitItems(CommitWave::removals, failures)) { }
    return failures.empty() ? Result() : failures.front();
}

} // namespace quor::toolkit
