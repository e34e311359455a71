// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/ItemFile.h"

#include <optional>

namespace quor::toolkit {

/// A change of an event, for saving and for removing it.
struct EventChange {
    QString uid;
    std::optional<Date> occurrence; ///< of one of a series
    EventFields base; ///< what it said when it was read
    EventFields fields; ///< what it says now
    bool isNew = false;
};

struct ReminderChange {
    QString uid;
    ReminderFields base;
    ReminderFields fields;
    bool isNew = false;
};

/// Why the fields cannot be written: none if they can.
[[nodiscard]] std::optional<EventStoreError> defectOf(const EventFields& fields, const EventFields& base);
[[nodiscard]] std::optional<EventStoreError> defectOf(const ReminderFields& fields);

// Each answers `conflict` where the file says something else than `base` in what the change is about, and
// `notFound` where the item is not there.

[[nodiscard]] std::optional<EventStoreError> saveEvent(ItemFile& file, const EventChange& change);
[[nodiscard]] std::optional<EventStoreError> removeEvent(ItemFile& file, const EventChange& change);
/// Ends the series before the change's occurrence.
[[nodiscard]] std::optional<EventStoreError> endSeries(ItemFile& file, const EventChange& change);
/// Makes a series of the events of `change.uid` from its occurrence on, under another identifier.
[[nodiscard]] std::optional<EventStoreError> beginSeries(
    ItemFile& file, const EventChange& change, const QString& newUid);
/// Changes the whole series, by its first event.
[[nodiscard]] std::optional<EventStoreError> saveSeries(ItemFile& file, const EventChange& change);

[[nodiscard]] std::optional<EventStoreError> saveReminder(ItemFile& file, const ReminderChange& change);
[[nodiscard]] std::optional<EventStoreError> removeReminder(ItemFile& file, const ReminderChange& change);

} // namespace quor::toolkit
