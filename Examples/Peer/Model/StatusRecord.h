// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenubarStatusItemData.h"
#include "Platform/Services/Clock.h"

namespace quor::peer {

class Tracker;

/// What the status item is to show now.
///
/// Task and colour are those of the timer started last. A timer that has run since before midnight
/// is told with midnight as its start, so that the day's total holds today's part of it alone; one
/// that starts after now, as after the clock was set back, with now.
[[nodiscard]] MenubarStatusItemData statusRecord(const Tracker& tracker, platform::Date now);

} // namespace quor::peer
