// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Services/Clock.h"

namespace quor::peer {

/// A local day, from its start up to the start of the next. A day on which clocks change has 23 or 25 hours.
struct Day {
    platform::Date start;
    platform::Date end;

    [[nodiscard]] static Day containing(platform::Date moment);
};

} // namespace quor::peer
