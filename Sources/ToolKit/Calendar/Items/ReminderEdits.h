// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/ItemChange.h"
#include "ToolKit/Calendar/Items/ItemFile.h"

namespace quor::toolkit {

/// Returns why the fields cannot be written, `nullopt` if they can.
[[nodiscard]] EventStoreResult defectOf(const ReminderFields& fields, const ReminderFields& base);

// Both fail by the rules of `EventEdits.h`.

[[nodiscard]] EventStoreResult saveItem(ItemFile& file, const ReminderChange& change);
[[nodiscard]] EventStoreResult removeItem(ItemFile& file, const ReminderChange& change);

} // namespace quor::toolkit
