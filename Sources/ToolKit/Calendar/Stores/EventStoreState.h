// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Concurrency/DispatchQueue.h"
#include "ToolKit/Calendar/Files/CalendarFolder.h"
#include "ToolKit/Calendar/Stores/EventStore.h"

#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <vector>

namespace quor::toolkit {

/// What a store knows of its root. `mutex` guards all but the options and the queue, and whoever calls an
/// operation holds it.
struct EventStore::State {
    explicit State(EventStoreOptions settings);

    [[nodiscard]] bool hasAccess(EntityType type) const; ///< needs no lock

    /// Takes in what changed on disk.
    void refresh();
    /// The next refresh looks at all folders.
    void relist() { isStale_ = true; }
    [[nodiscard]] CalendarFolder* folder(const QString& calendarIdentifier);
    [[nodiscard]] EventSource source(const QByteArray& name) const;
    /// The folders of these calendars, of all if there are none, as far as they are there.
    [[nodiscard]] std::vector<std::pair<CalendarPath, CalendarFolder*>> folders(
        const std::optional<std::vector<QString>>& identifiers);
    [[nodiscard]] Result commit();

    const EventStoreOptions options;
    const QByteArray root; ///< empty where the user has no home
    platform::DispatchQueue queue{"EventStore"};

    std::mutex mutex;
    std::vector<EventSource> sources;
    // Staged:
    std::vector<std::function<Result()>> calendarChanges;
    std::vector<CalendarPath> calendarRemovals;

private:
    void list();
    void removeCalendars(std::vector<EventStoreError>& failures);

    std::unique_ptr<FolderWatch> watch_;
    std::map<CalendarPath, std::unique_ptr<CalendarFolder>> folders_;
    bool isStale_ = true;
};

} // namespace quor::toolkit
