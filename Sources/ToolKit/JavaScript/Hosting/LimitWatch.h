// SPDX-License-Identifier: MIT
#pragma once

#include "ToolKit/JavaScript/Hosting/HostProcess.h"

#include <optional>

namespace quor::toolkit {

/// The limits of one run of a script, and of each later use of its values.
struct ScriptLimits {
    std::optional<std::chrono::milliseconds> time = {}; ///< `nullopt` means no limit
    qint64 memory = 0; ///< in bytes; 0 means no limit
};

/// Measures what a script's process uses, and notices when that exceeds the limits.
///
/// The time is the processor time of the process and of the calling thread, which serves the script, and time
/// in which the whole process sleeps although the script has no reason to wait. The memory is what the
/// process has more than at the construction of the watch.
class LimitWatch final {
public:
    enum class Excess { none, time, memory };

    LimitWatch(ScriptLimits limits, const HostProcess& process);

    /// Begins to measure the time of a run. The calling thread serves the script from now on.
    void begin();
    /// Measures, and returns after which time to measure again; `nullopt` if a limit is exceeded.
    /// `hadControl` says that the script had the control since the last call.
    [[nodiscard]] std::optional<std::chrono::milliseconds> check(bool hadControl);
    /// The limit that was exceeded.
    [[nodiscard]] Excess excess() const { return excess_; }

private:
    using Clock = std::chrono::steady_clock;

    [[nodiscard]] bool exceedsTime(bool hadControl);
    [[nodiscard]] bool exceedsMemory();

    ScriptLimits limits_;
    const HostProcess& process_;
    qint64 memoryOfEngine_;
    std::chrono::nanoseconds started_{0}; ///< processor time at the beginning
    std::chrono::nanoseconds asleep_{0};
    std::chrono::nanoseconds lastTime_{0}; ///< processor time of the process at the last check
    std::chrono::nanoseconds left_{0};
    Clock::time_point lastCheck_;
    Clock::time_point lastMemoryCheck_;
    Excess excess_ = Excess::none;
};

} // namespace quor::toolkit
