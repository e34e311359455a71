// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/EntityType.h"

#include <QString>

#include <functional>
#include <optional>

namespace quor::toolkit {

/// Which calendars an `EventStore` works on, and who says whether it may.
struct EventStoreOptions {
    /// The folder of the sources. None: `$XDG_DATA_HOME/calendars`.
    std::optional<QString> root;

    /// Asked at each operation, on its thread. Empty: the user's preferences, where the standard defaults'
    /// keys `calendarAccessDenied` and `reminderAccessDenied`, set to true, refuse access; it is granted
    /// else.
    std::function<AuthorizationStatus(EntityType)> authorization;
};

} // namespace quor::toolkit
