// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Clock.h"

#include <QString>

#include <optional>

namespace quor::peer {

struct Day;

/// A stretch of time spent on a task; a running timer is one without an end.
struct TimeEntry {
    QString id;
    QString taskID;
    platform::Date start;
    std::optional<platform::Date> end; ///< not before `start`

    [[nodiscard]] bool isRunning() const { return !end; }

    friend bool operator==(const TimeEntry&, const TimeEntry&) = default;
};

/// Seconds of the entry that fall into the day, a running one counted up to `now`. Never negative,
/// also for an entry that starts after `now`, as after the clock was set back.
[[nodiscard]] double secondsWithin(const TimeEntry& entry, const Day& day, platform::Date now);

} // namespace quor::peer
