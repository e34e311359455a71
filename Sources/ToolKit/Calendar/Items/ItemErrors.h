// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/EventStoreError.h"

namespace quor::toolkit {

// The errors that several operations return. `thing` names a file or an item; an identifier that another
// program wrote may be long, and is cut.

[[nodiscard]] inline EventStoreError errorAbout(
    EventStoreError::Kind kind, const QString& thing, const QString& reason)
{
    return {kind, thing.left(100) + QStringLiteral(": ") + reason};
}
[[nodiscard]] inline EventStoreError conflict(const QString& thing)
{
    return errorAbout(EventStoreError::Kind::conflict, thing, QStringLiteral("changed by another program"));
}
[[nodiscard]] inline EventStoreError notFound(const QString& thing)
{
    return errorAbout(EventStoreError::Kind::notFound, thing, QStringLiteral("does not exist any more"));
}
[[nodiscard]] inline EventStoreError unreadable(const QString& thing)
{
    return errorAbout(
        EventStoreError::Kind::unreadable, thing, QStringLiteral("cannot be read as a calendar file"));
}
[[nodiscard]] inline EventStoreError invalid(const QString& reason)
{
    return {EventStoreError::Kind::invalid, reason};
}

/// Whether a change that failed must not be tried again at a later commit.
[[nodiscard]] inline bool isFinal(const EventStoreError& failure)
{
    using Kind = EventStoreError::Kind;
    switch (failure.kind()) {
    case Kind::conflict:
    case Kind::notFound:
    case Kind::unreadable:
        return true;
    case Kind::accessDenied:
    case Kind::invalid:
    case Kind::readOnly:
    case Kind::full:
    case Kind::failed:
        return false;
    }
    return false;
}

} // namespace quor::toolkit
