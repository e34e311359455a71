// SPDX-License-Identifier: MIT
#include "Peer/Model/Day.h"

#include <QDateTime>

#include <cmath>

namespace quor::peer {

Day Day::containing(platform::Date moment)
{
    const auto milliseconds = static_cast<qint64>(std::floor(platform::secondsSince1970(moment) * 1000));
    const QDate date = QDateTime::fromMSecsSinceEpoch(milliseconds).date();
    // Where a zone skips midnight, the day starts at the first moment that it has.
    const auto startOf = [](QDate day) {
        return platform::dateFromSeconds(static_cast<double>(day.startOfDay().toMSecsSinceEpoch()) / 1000);
    };
    return {startOf(date), startOf(date.addDays(1))};
}

} // namespace quor::peer
