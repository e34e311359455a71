// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Clock.h"

#include <QString>

#include <optional>
#include <vector>

namespace quor::toolkit {

/// Selects events that overlap [startDate, endDate), and events without length that lie in it.
struct EventPredicate {
    platform::Date startDate;
    platform::Date endDate;
    std::optional<std::vector<QString>> calendarIdentifiers; ///< `nullopt` selects all calendars
};

/// Selects reminders that are not completed and are due in [startDate, endDate). A missing bound is open. If
/// both are missing, reminders without a due date are selected too.
struct ReminderPredicate {
    std::optional<platform::Date> startDate;
    std::optional<platform::Date> endDate;
    std::optional<std::vector<QString>> calendarIdentifiers; ///< `nullopt` selects all calendars
};

} // namespace quor::toolkit
