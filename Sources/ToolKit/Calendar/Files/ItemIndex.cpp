// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Files/ItemIndex.h"

#include "ToolKit/Calendar/Items/RecurrenceExpansion.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace quor::toolkit {

namespace {

/// An event that ends in a range starts at most this long before it, or is one of the few longer ones.
constexpr std::chrono::hours longestShortEvent{24 * 32};

} // namespace

ItemIndex::ItemIndex(const std::vector<NamedRecords>& files)
{
    for (const NamedRecords& each : files) {
        holdsReminders_ = holdsReminders_ || !each.records->reminders.empty();
        for (const EventRecord& record : each.records->events) {
            const Entry entry{record.fields.startDate, record.fields.endDate, each.file, &record};
            if (record.recurrence)
                series_.push_back(entry);
            else
                (entry.end - entry.start > longestShortEvent ? long_ : short_).push_back(entry);
        }
    }
    std::ranges::stable_sort(short_, {}, &Entry::start);
}

void ItemIndex::visitEvents(Date start, Date end, const EventVisit& visit) const
{
    const auto visitSingle = [&](const Entry& each) {
        if (overlaps(each.start, each.end, start, end))
            visit(*each.file, *each.record, each.record->occurrence, each.record->fields);
    };
    const auto first = std::ranges::lower_bound(short_, start - longestShortEvent, {}, &Entry::start);
    for (auto each = first; each != short_.end() && each->start < end; ++each)
        visitSingle(*each);
    for (const Entry& each : long_)
        visitSingle(each);
    const QByteArray* file = nullptr;
    ExpansionLimit limit;
    for (const Entry& each : series_) {
        if (std::exchange(file, each.file) != each.file)
            limit = {};
        expand(*each.record, start, end, limit, [&](Date occurrence, const EventFields& fields) {
            visit(*each.file, *each.record, occurrence, fields);
        });
    }
}

} // namespace quor::toolkit
