// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/ItemRecord.h"

#include <functional>
#include <optional>
#include <vector>

namespace quor::toolkit {

/// The records of one file and its name. Borrowed.
struct NamedRecords {
    const QByteArray* file;
    const FileRecords* records;
};

/// Called with an event, or with each occurrence of a series. `occurrence` is the start that identifies it in
/// its series, `nullopt` for an event that happens once.
using EventVisit = std::function<void(const QByteArray& file, const EventRecord& record,
    std::optional<Date> occurrence, const EventFields& fields)>;

/// The items of some files, arranged so that the events in a range of time are found without a look at each.
/// Valid as long as the records that it is made of.
class ItemIndex final {
public:
    explicit ItemIndex(const std::vector<NamedRecords>& files);

    /// Visits the events that overlap [start, end), in no order.
    void visitEvents(Date start, Date end, const EventVisit& visit) const;
    [[nodiscard]] bool holdsEvents() const { return !short_.empty() || !long_.empty() || !series_.empty(); }
    [[nodiscard]] bool holdsReminders() const { return holdsReminders_; }

private:
    struct Entry {
        Date start;
        Date end;
        const QByteArray* file;
        const EventRecord* record;
    };

    std::vector<Entry> short_; ///< events that happen once, of at most `longestShortEvent`, by start
    std::vector<Entry> long_; ///< longer events that happen once
    std::vector<Entry> series_;
    bool holdsReminders_ = false;
};

} // namespace quor::toolkit
