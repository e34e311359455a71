// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace quor::toolkit {

/// A group of calendars: a folder below the store's root, usually for one account of a synchroniser.
/// The source "local" always exists. Its folder is made with its first calendar.
struct EventSource {
    QString sourceIdentifier; ///< the folder's name
    QString title; ///< the content of its file `displayname`, or the folder's name without one

    friend bool operator==(const EventSource&, const EventSource&) = default;
};

} // namespace quor::toolkit
