// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenubarStatusItemData.h"
#include "Platform/Services/Clock.h"

namespace quor::peer {

class Tracker;

/// The record that the status item shows now.
///
/// Task and colour belong to the timer that was started last. A timer that was started before today has
/// midnight as its start in the record, so that the day's total contains only today's part of it. A timer
/// whose start is later than now, because the clock was set back, has now as its start.
[[nodiscard]] MenubarStatusItemData statusRecord(const Tracker& tracker, platform::Date now);

} // namespace quor::peer
