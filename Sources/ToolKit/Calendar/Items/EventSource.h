// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

namespace quor::toolkit {

/// Where calendars come from: a folder below the store's root, mostly one account of a synchroniser's.
/// The source "local" is always there, and its folder is made with its first calendar.
struct EventSource {
    QString sourceIdentifier; ///< the folder's name
    QString title; ///< what its file `displayname` says, else the folder's name

    friend bool operator==(const EventSource&, const EventSource&) = default;
};

} // namespace quor::toolkit
