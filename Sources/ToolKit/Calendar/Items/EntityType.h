// SPDX-License-Identifier: MIT
#pragma once

namespace quor::toolkit {

/// The type of the items in a calendar. Access is granted or refused per type.
enum class EntityType { event = 0, reminder = 1 };

/// Whether this program is allowed to use the items of a type, see `EventStoreOptions::authorization`.
enum class AuthorizationStatus { notDetermined = 0, restricted = 1, denied = 2, fullAccess = 3 };

/// The occurrences of a series that a change of one of them applies to.
enum class EventSpan {
    thisEvent = 0,
    futureEvents = 1, ///< that occurrence and all later ones
};

} // namespace quor::toolkit
