// SPDX-License-Identifier: MIT
#pragma once

#include <chrono>

namespace quor::platform {

/// A moment, in seconds since 1970-01-01 00:00:00 UTC. Stored and exchanged as a `double`.
using Date = std::chrono::sys_time<std::chrono::duration<double>>;

[[nodiscard]] inline double secondsSince1970(Date date)
{
    return date.time_since_epoch().count();
}
[[nodiscard]] inline Date dateFromSeconds(double seconds)
{
    return Date(std::chrono::duration<double>(seconds));
}

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
