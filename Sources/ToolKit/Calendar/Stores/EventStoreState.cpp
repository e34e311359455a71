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

bool EventStore::State::commitItems(CommitWave wave, Failures& failures)
{
    bool isAnyDone = false;
    for (CalendarFolder* const folder : calendars.folders()) {
        if (std::ranges::find(removals, folder->path()) == removals.end())
            isAnyDone = folder->commit(wave, failures) || isAnyDone;
    }
    return isAnyDone;
}

void EventStore::State::commitPropertiesAndItems(Failures& failures)
{
    std::erase_if(propertiesChanges,
        [&](const auto& change) { return isSettled(change.write(calendars.root()), failures); });
    commitItems(CommitWave::additions, failures);
    // An item that moves through several calendars leaves one after the other.
    while (commitItems(CommitWave::removals, failures)) { }
}

EventStore::Result EventStore::State::removeCalendar(const CalendarPath& path) const
{
    CalendarFolder* const folder = calendars.folder(path);
    if (!folder)
        return notFound(path.identifier());
    if (folder->hasUnfinishedMoves())
        return errorAbout(EventStoreError::Kind::failed, path.identifier(),
            QStringLiteral("an item could not be moved out of this calendar, so it stays"));
    return folder->removeFromDisk();
}

void EventStore::State::removeCalendars(Failures& failures)
{
    const bool hasRemovals = !removals.empty();
    std::erase_if(removals, [&](const CalendarPath& path) {
        const CalendarFolder* const folder = calendars.folder(path);
        const bool stays
            = folder && folder->hasUnfinishedMoves(); // a failure of the item, not of the removal
        return stays || isSettled(removeCalendar(path), failures);
    });
    if (hasRemovals)
        calendars.refresh(CalendarTree::Listing::always);
    // An item that was to move into a removed calendar stays where it is.
    while (commitItems(CommitWave::removals, failures)) { }
}

EventStore::Result EventStore::State::commit()
{
    Failures failures;
    if (auto earlier = std::exchange(unreported_, std::nullopt))
        failures.push_back(*std::move(earlier));
    commitPropertiesAndItems(failures);
    removeCalendars(failures);
    return failures.empty() ? Result() : failures.front();
}

void EventStore::State::commitOthers()
{
    Failures failures;
    commitPropertiesAndItems(failures);
    removeCalendars(failures);
    keep(failures);
}

EventStore::Result EventStore::State::commitRemoval(const CalendarPath& path)
{
    Failures failures;
    removals.push_back(path); // so that its own items are not written before
    commitPropertiesAndItems(failures);
    auto failure = removeCalendar(path);
    std::erase(removals, path);
    calendars.refresh(CalendarTree::Listing::always);
    removeCalendars(failures);
    keep(failures);
    return failure;
}

// Failures of changes that stay staged are found again by the next commit.
void EventStore::State::keep(const Failures& failures)
{
    const auto dropped = std::ranges::find_if(failures, isFinal);
    if (!unreported_ && dropped != failures.end())
        unreported_ = *dropped;
}

void EventStore::State::reset()
{
    propertiesChanges.clear();
    removals.clear();
    unreported_.reset();
    for (CalendarFolder* const folder : calendars.folders())
        folder->unstageAll();
}

} // namespace quor::toolkit
