// SPDX-License-Identifier: MIT
#include "Platform/Preferences/UserDefaults.h"
#include "ToolKit/Calendar/Stores/EventStore.h"

namespace quor::toolkit {

AuthorizationStatus EventStore::authorizationStatus(EntityType type, const EventStoreOptions& options)
{
    if (options.authorization)
        return options.authorization(type);
    const QString key = type == EntityType::event ? QStringLiteral("calendarAccessDenied")
                                                  : QStringLiteral("reminderAccessDenied");
    return platform::UserDefaults::standard().boolForKey(key) ? AuthorizationStatus::denied
                                                              : AuthorizationStatus::fullAccess;
}

} // namespace quor::toolkit
