// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/RuleIterator.h"

#include <QtGlobal>

#include <map>
#include <mutex>
#include <vector>

namespace quor::toolkit {

/// A time zone as a calendar file defines it (VTIMEZONE). Follows at most 32 rules, and only those that real
/// zones have: yearly ones in named months, or on one date. A change of the clock by another rule happens
/// once, at its start. libical would follow a rule by seconds for minutes. Any thread.
class DefinedZone final {
public:
    explicit DefinedZone(icalcomponent* definition);

    /// False if the definition has no offset at all.
    [[nodiscard]] bool isValid() const { return !changes_.empty(); }
    /// In seconds, positive in the east. `moment` is in seconds since 1970. Before the first change, the
    /// offset is the one that it replaces.
    [[nodiscard]] qint64 offsetAt(qint64 moment) const;

private:
    struct Offsets {
        qint64 before;
        qint64 after;
    };
    struct Change {
        qint64 moment;
        Offsets offsets;
    };
    using Changes = std::vector<Change>; // sorted by their moments
    struct YearlyChange {
        RuleIterator starts;
        qint64 first;
        qint64 last;
        Offsets offsets;
    };

    void readObservance(icalcomponent* observance);
    void readRule(icalproperty* property, std::chrono::local_seconds first, const Offsets& offsets);
    /// Returns the changes in [start, end), and before them the latest one before `start`.
    [[nodiscard]] Changes changesBetween(qint64 start, qint64 end) const;

    Changes changes_; ///< those that happen once
    std::vector<YearlyChange> yearly_;
    mutable std::mutex mutex_;
    mutable std::map<qint64, Changes>
        years_; ///< all changes in the years that were asked for, by their number
};

} // namespace quor::toolkit
