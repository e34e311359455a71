// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Concurrency/DispatchQueue.h"
#include "ToolKit/Calendar/Files/CalendarTree.h"
#include "ToolKit/Calendar/Stores/EventStore.h"

#include <mutex>
#include <vector>

namespace quor::toolkit {

/// The calendars of one store and their uncommitted changes. `mutex` guards all members but `options` and
/// `queue`. Functions that say so require that the caller has locked it.
struct EventStore::State {
    explicit State(EventStoreOptions settings);

    [[nodiscard]] bool hasAccess(EntityType type) const;
    [[nodiscard]] bool hasAnyAccess() const;

    /// Runs `change` under the lock, on calendars that are up to date. Commits if `change` succeeds and
    /// `commits` is set.
    template <class Change>
    [[nodiscard]] Result run(bool hasAccess, bool commits, Change change)
    {
        if (!hasAccess)
            return EventStoreError(
                EventStoreError::Kind::accessDenied, QStringLiteral("the user has refused access"));
        const std::scoped_lock lock(mutex);
        calendars.refresh();
        auto failure = change();
        return failure || !commits ? failure : commit();
    }
    /// Writes all that is staged, and returns the first failure. Requires the lock.
    [[nodiscard]] Result commit();

    const EventStoreOptions options;
    platform::DispatchQueue queue{"EventStore"};

    std::mutex mutex;
    CalendarTree calendars;
    std::vector<CalendarPropertiesChange> propertiesChanges; ///< staged
    std::vector<CalendarPath> removals; ///< calendars whose removal is staged

private:
    bool commitItems(CommitWave wave, std::vector<EventStoreError>& failures);
    void removeCalendars(std::vector<EventStoreError>& failures);
};

} // namespace quor::toolkit
