// SPDX-License-Identifier: MIT
#include "Peer/Model/TimeEntry.h"

#include "Peer/Model/Day.h"

#include <algorithm>

namespace quor::peer {

double secondsWithin(const TimeEntry& entry, const Day& day, platform::Date now)
{
    const platform::Date from = std::max(entry.start, day.start);
    const platform::Date to = std::min(entry.end.value_or(now), day.end);
    return std::max(0.0, (to - from).count());
}

} // namespace quor::peer
