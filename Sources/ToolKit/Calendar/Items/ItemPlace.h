// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Clock.h"

#include <QByteArray>
#include <QString>

#include <optional>

namespace quor::toolkit {

/// Where an item was read: the store's own note in an `Event` or a `Reminder`.
struct ItemPlace {
    QString uid;
    QString calendarIdentifier; ///< empty before the first save
    QByteArray file; ///< its name in the calendar's folder
    bool isRecurring = false;
    std::optional<platform::Date> occurrence;
};

} // namespace quor::toolkit
