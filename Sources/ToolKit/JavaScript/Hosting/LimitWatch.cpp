// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/Hosting/LimitWatch.h"

#include <algorithm>
#include <ctime>

namespace quor::toolkit {

namespace {

using namespace std::chrono_literals;
constexpr auto shortestInterval = 1ms;
constexpr auto longestInterval = 10ms;
constexpr auto longestLimit = std::chrono::years(100);
constexpr auto memoryInterval = 4ms; ///< reading the memory costs some 30 microseconds

std::chrono::nanoseconds timeOfThread()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

} // namespace

LimitWatch::LimitWatch(ScriptLimits limits, const HostProcess& process)
    : limits_(limits)
    , process_(process)
    , memoryOfEngine_(process.memory())
{
    if (limits_.time) // in nanoseconds, the largest number of milliseconds would overflow
        limits_.time = std::min<std::chrono::milliseconds>(*limits_.time, longestLimit);
}

void LimitWatch::begin()
{
    lastTime_ = process_.processorTime();
    started_ = lastTime_ + timeOfThread();
    asleep_ = 0ns;
    lastCheck_ = Clock::now();
}

std::optional<std::chrono::milliseconds> LimitWatch::check(bool hadControl)
{
    if (excess_ == Excess::none && limits_.time && exceedsTime(hadControl))
        excess_ = Excess::time;
    if (excess_ == Excess::none && limits_.memory > 0 && exceedsMemory())
        excess_ = Excess::memory;
    if (excess_ != Excess::none)
        return std::nullopt;
    if (!limits_.time)
        return longestInterval;
    // Half of what is left, because the process can have several threads.
    const auto half = std::chrono::ceil<std::chrono::milliseconds>(left_ / 2);
    return std::clamp<std::chrono::milliseconds>(half, shortestInterval, longestInterval);
}

bool LimitWatch::exceedsTime(bool hadControl)
{
    const auto now = Clock::now();
    const auto time = process_.processorTime();
    // Also if it was awake in between: a script can sleep for a millisecond again and again.
    if (hadControl && process_.isAsleep())
        asleep_ += std::max(now - lastCheck_ - (time - lastTime_), Clock::duration(0));
    lastCheck_ = now;
    lastTime_ = time;
    left_ = *limits_.time - (time + timeOfThread() - started_ + asleep_);
    return left_ <= 0ns;
}

bool LimitWatch::exceedsMemory()
{
    const auto now = Clock::now();
    if (now - lastMemoryCheck_ < memoryInterval)
        return false;
    lastMemoryCheck_ = now;
    return process_.memory() - memoryOfEngine_ > limits_.memory;
}

} // namespace quor::toolkit
