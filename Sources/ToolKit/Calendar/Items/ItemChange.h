// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/Event.h"
#include "ToolKit/Calendar/Items/Reminder.h"

#include <optional>

namespace quor::toolkit {

/// What is to be written of an item.
template <class Fields>
struct ItemChange {
    QString uid;
    std::optional<Date> occurrence; ///< `nullopt` for all but an occurrence of a series
    Fields base; ///< the fields as they were read
    Fields fields; ///< the fields as they are to be
    bool isNew = false;
};

using EventChange = ItemChange<EventFields>;
using ReminderChange = ItemChange<ReminderFields>;

/// Whether the file's `current` value and the `wanted` one both differ from the `base`, and from each other.
template <class T>
[[nodiscard]] bool clash(const T& current, const T& base, const T& wanted)
{
    return wanted != base && current != base && current != wanted;
}

} // namespace quor::toolkit
