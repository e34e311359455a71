// SPDX-License-Identifier: MIT
#include "Peer/Model/Day.h"

#include <QDateTime>

#include <cmath>

namespace quor::peer {

Day Day::containing(platform::Date moment)
{
    // Whole seconds, as rounding must not reach the next day.
    const auto second = std::floor(platform::secondsSince1970(moment));
    const QDate date = platform::qDateTimeFromDate(platform::dateFromSeconds(second)).date();
    // If clocks skip midnight, this is the first moment after the gap.
    const auto startOf
        = [&](QDate day) { return platform::dateFromQDateTime(day.startOfDay()).value_or(moment); };
    return {startOf(date), startOf(date.addDays(1))};
}

} // namespace quor::peer
