// SPDX-License-Identifier: MIT
#pragma once

namespace quor::toolkit {

/// What a calendar holds, and what access is asked for.
enum class EntityType { event = 0, reminder = 1 };

/// Whether this program may use the items of a type. The desktop's user decides, see `EventStore`.
enum class AuthorizationStatus { notDetermined = 0, restricted = 1, denied = 2, fullAccess = 3 };

/// How far a change of one event of a series reaches.
enum class EventSpan { thisEvent = 0, futureEvents = 1 };

} // namespace quor::toolkit
