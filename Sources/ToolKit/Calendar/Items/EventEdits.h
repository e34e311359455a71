// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/Calendar/Items/ItemChange.h"
#include "ToolKit/Calendar/Items/ItemFile.h"

namespace quor::toolkit {

/// Returns why the fields cannot be written, `nullopt` if they can. `base` are the fields as they were read.
[[nodiscard]] EventStoreResult defectOf(const EventFields& fields, const EventFields& base);

// The functions below change the file, which may be left half changed on failure. They fail with `notFound`
// if the item is not in the file, and with `conflict` if another program has changed it: for a save, one of
// the fields that the change sets; for a removal, any field.

/// Saves an event that happens once, or one occurrence of a series, as an override of it.
[[nodiscard]] EventStoreResult saveItem(ItemFile& file, const EventChange& change);
/// Saves the whole series; `change` has the fields of its first occurrence.
[[nodiscard]] EventStoreResult saveSeries(ItemFile& file, const EventChange& change);
/// Removes an event that happens once, or one occurrence of a series.
[[nodiscard]] EventStoreResult removeItem(ItemFile& file, const EventChange& change);

// A series is split in a file that has a copy of it for each part. The first part ends before the change's
// occurrence, the second part begins with it and gets an identifier of its own and the changed fields.
[[nodiscard]] EventStoreResult endSeries(ItemFile& file, const EventChange& change);
[[nodiscard]] EventStoreResult beginSeries(ItemFile& file, const EventChange& change, const QString& newUid);

} // namespace quor::toolkit
