// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Clock.h"

#include <QString>

#include <optional>
#include <vector>

namespace quor::toolkit {

/// Which events to read: those that overlap [startDate, endDate), and those without length that lie in it.
struct EventPredicate {
    platform::Date startDate;
    platform::Date endDate;
    std::optional<std::vector<QString>> calendarIdentifiers; ///< none: all calendars
};

/// Which reminders to read: those that are not completed and are due in [startDate, endDate). An absent end
/// is open; where both are absent, reminders without a due date are meant too.
struct ReminderPredicate {
    std::optional<platform::Date> startDate;
    std::optional<platform::Date> endDate;
    std::optional<std::vector<QString>> calendarIdentifiers; ///< none: all calendars
};

} // namespace quor::toolkit
