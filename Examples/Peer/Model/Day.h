// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Clock.h"

namespace quor::peer {

/// A day of the user's: from one local midnight up to the next, so 23 or 25 hours long at times.
struct Day {
    platform::Date start;
    platform::Date end;

    [[nodiscard]] static Day containing(platform::Date moment);
};

} // namespace quor::peer
