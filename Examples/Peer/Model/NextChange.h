// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenubarStatusItemData.h"
#include "Platform/Services/Clock.h"

namespace quor::peer {

struct Settings;

/// The next moment at which the status item changes by the passage of time alone: a time that is shown
/// reaches its next minute (or its next hundredth, if durations are written as decimal numbers), or the day
/// ends.
[[nodiscard]] platform::Date nextChange(
    const MenubarStatusItemData& shown, const Settings& settings, platform::Date now);

} // namespace quor::peer
