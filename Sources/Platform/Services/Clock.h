// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Calendar/Date.h"

#include <chrono>

namespace quor::platform {

/// The source of the current time, which tests replace by a clock of their own. The time can jump in
/// both directions, for instance when the user sets the wall clock. Any thread.
class Clock {
public:
    virtual ~Clock() = default;
    [[nodiscard]] virtual Date now() const = 0;
};

/// The wall clock of this machine.
class SystemClock final : public Clock {
public:
    [[nodiscard]] Date now() const override { return std::chrono::system_clock::now(); }
};

} // namespace quor::platform
