// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/RuleIterator.h"

#include <QtGlobal>

#include <vector>

namespace quor::toolkit {

/// A time zone as a calendar file defines it (VTIMEZONE). Follows at most 16 rules, and only those that real
/// zones have: yearly ones in named months, or on one date. A change of the clock by another rule happens
/// once, at its start. libical would follow a rule by seconds for minutes.
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
    struct YearlyChange {
        RuleIterator starts;
        qint64 first;
        qint64 last;
        Offsets offsets;
    };

    void readObservance(icalcomponent* observance);
    void readRule(icalproperty* property, std::chrono::local_seconds first, const Offsets& offsets);

    std::vector<Change> changes_; ///< sorted
    std::vector<YearlyChange> yearly_;
};

} // namespace quor::toolkit
