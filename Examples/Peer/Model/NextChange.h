// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenubarStatusItemData.h"
#include "Platform/Services/Clock.h"

namespace quor::peer {

struct Settings;

/// The moment after `now` at which the status item shows something else although nobody did a
/// thing: a minute turns in a time on show (or a hundredth, where durations are written as decimal
/// numbers), or the day ends.
[[nodiscard]] platform::Date nextChange(
    const MenubarStatusItemData& shown, const Settings& settings, platform::Date now);

} // namespace quor::peer
