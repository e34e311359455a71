// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Clock.h"

#include <QString>

#include <optional>

namespace quor::peer {

struct Day;

/// A period of time spent on a task. An entry without an end is a running timer.
struct TimeEntry {
    QString id;
    QString taskID;
    platform::Date start;
    std::optional<platform::Date> end; ///< not before `start`

    [[nodiscard]] bool isRunning() const { return !end; }

    friend bool operator==(const TimeEntry&, const TimeEntry&) = default;
};

/// The seconds of the entry that lie within the day. A running entry ends at `now`. Returns 0 for an entry
/// that starts after `now`, which happens if the clock was set back.
[[nodiscard]] double secondsWithin(const TimeEntry& entry, const Day& day, platform::Date now);

} // namespace quor::peer
