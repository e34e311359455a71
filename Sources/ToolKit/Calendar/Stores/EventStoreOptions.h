// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/EntityType.h"

#include <QString>

#include <functional>
#include <optional>

namespace quor::toolkit {

/// The calendars that an `EventStore` works on, and the access to them.
struct EventStoreOptions {
    /// The folder of the sources. `nullopt` means `$XDG_DATA_HOME/calendars`.
    std::optional<QString> root;

    /// Called by each operation, on its thread. If empty, the user's preferences decide: access is granted
    /// unless `calendarAccessDenied` or `reminderAccessDenied` is true in the standard defaults.
    std::function<AuthorizationStatus(EntityType)> authorization;
};

} // namespace quor::toolkit
