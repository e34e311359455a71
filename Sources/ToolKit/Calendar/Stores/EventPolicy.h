// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Files/CalendarFolder.h"
#include "ToolKit/Calendar/Items/EntityType.h"
#include "ToolKit/Calendar/Items/EventEdits.h"

#include <optional>

namespace quor::toolkit {

/// How `ItemSaving` stages an event: with regard to the series that it may be an occurrence of.
class EventPolicy final {
public:
    using Item = Event;
    using Fields = EventFields;
    static constexpr QStringView name = u"event";

    explicit EventPolicy(EventSpan span)
        : span_(span)
    {
    }

    /// Stages a change in the file `place.file`. Later occurrences that change with this one become a series
    /// of their own, and `place` is set to it.
    [[nodiscard]] EventStoreResult saveInPlace(
        CalendarFolder& folder, EventChange change, ItemPlace& place) const;
    [[nodiscard]] ItemEdit removal(const EventChange& change) const;
    /// Returns the fields as they will be read again, and sets `place.occurrence` accordingly. Returns
    /// `nullopt` if the event is not in the records.
    [[nodiscard]] std::optional<EventFields> readBack(const FileRecords& records, ItemPlace& place) const;

private:
    EventSpan span_;
};

} // namespace quor::toolkit
