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
    /// The same after a change of a calendar, whose caller is not to get failures of other changes. Those of
    /// changes that were dropped are the result of the next `commit`. Requires the lock.
    void commitOthers();
    /// Writes all that is staged outside of the calendar, removes the calendar, and returns why that failed,
    /// if it did. Other failures as with `commitOthers`. Requires the lock.
    [[nodiscard]] Result commitRemoval(const CalendarPath& path);
    /// Drops all that is staged. Requires the lock.
    void reset();

    const EventStoreOptions options;
    platform::DispatchQueue queue{"EventStore"};

    std::mutex mutex;
    CalendarTree calendars;
    std::vector<CalendarPropertiesChange> propertiesChanges; ///< staged
    std::vector<CalendarPath> removals; ///< calendars whose removal is staged

private:
    using Failures = std::vector<EventStoreError>;

    bool commitItems(CommitWave wave, Failures& failures);
    void commitPropertiesAndItems(Failures& failures);
    [[nodiscard]] Result removeCalendar(const CalendarPath& path) const;
    void removeCalendars(Failures& failures);
    void keep(const Failures& failures);

    Result unreported_; ///< the first failure of a change that was dropped, for the next `commit`
};

} // namespace quor::toolkit
