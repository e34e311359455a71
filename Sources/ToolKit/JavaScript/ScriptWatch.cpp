// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/ScriptWatch.h"

#include "ToolKit/JavaScript/ScriptBridge.h"

#include <algorithm>
#include <ctime>
#include <thread>

// The library exports these without declaring them.
extern "C" {
using JSShouldTerminateCallback = bool (*)(JSContextRef context, void* data);
void JSContextGroupSetExecutionTimeLimit(
    JSContextGroupRef group, double seconds, JSShouldTerminateCallback callback, void* data);
void JSContextGroupClearExecutionTimeLimit(JSContextGroupRef group);
using JSHeapFinalizer = void (*)(JSContextGroupRef group, void* data);
void JSContextGroupAddHeapFinalizer(JSContextGroupRef group, JSHeapFinalizer finalizer, void* data);
JSObjectRef JSGetMemoryUsageStatistics(JSContextRef context);
}

namespace quor::toolkit {

using namespace Qt::StringLiterals;

namespace {

using namespace std::chrono_literals;
constexpr auto checkInterval = 20ms;
constexpr auto shortestInterval = 1ms;
constexpr auto distanceOfTimers = 2ms; ///< of one engine
constexpr auto longestDelay = 1s;
constexpr auto timerLatency = 200us; ///< after which a timer without delay has usually run out

std::chrono::nanoseconds processorTime()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

double statistic(JSContextRef context, JSObjectRef statistics, const QString& name)
{
    JSValueRef value = JSObjectGetProperty(context, statistics, script::Text(name).get(), nullptr);
    return value ? JSValueToNumber(context, value, nullptr) : 0;
}

} // namespace

ScriptWatch::ScriptWatch(std::optional<std::chrono::milliseconds> time, qint64 memory)
    : time_(time)
    , memory_(memory)
{
}

void ScriptWatch::install(JSContextGroupRef group)
{
    group_ = group;
    if (!hasLimits())
        return;
    // The first timer allocates memory, which is not allowed in `collected`.
    JSContextGroupSetExecutionTimeLimit(group_, 1, shouldTerminate, this);
    JSContextGroupClearExecutionTimeLimit(group_);
    JSContextGroupAddHeapFinalizer(group_, collected, this);
}

ScriptWatch::Run::Run(ScriptWatch& watch)
    : watch_(watch)
{
    if (watch_.runs_++ > 0)
        return;
    watch_.excess_ = Excess::none;
    if (watch_.hasLimits())
        watch_.started_ = processorTime();
}

ScriptWatch::Run::~Run()
{
    --watch_.runs_;
}

ScriptWatch::Script::Script(ScriptWatch& watch)
    : watch_(watch)
{
    if (watch_.scripts_++ == 0 && watch_.time_)
        watch_.startTimer(checkInterval);
}

ScriptWatch::Script::~Script()
{
    if (--watch_.scripts_ == 0 && watch_.hasLimits())
        JSContextGroupClearExecutionTimeLimit(watch_.group_);
}

bool ScriptWatch::endAgain()
{
    if (excess_ == Excess::none)
        return false;
    startTimer(shortestInterval);
    return true;
}

bool ScriptWatch::shouldTerminate(JSContextRef context, void* watch)
{
    auto& self = *static_cast<ScriptWatch*>(watch);
    if (!self.isRunning()) { // a timer of an earlier run
        JSContextGroupClearExecutionTimeLimit(self.group_);
        return false;
    }
    if (self.excess_ == Excess::none)
        self.excess_ = self.measure(context);
    // The engine asks only once for each timer.
    const bool goesOn = self.scripts_ > 0 && (self.time_ || self.excess_ != Excess::none);
    if (goesOn)
        self.startTimer(checkInterval);
    else
        JSContextGroupClearExecutionTimeLimit(self.group_);
    return self.excess_ != Excess::none;
}

// Called during a garbage collection, when the memory cannot be measured. So it only starts a timer.
void ScriptWatch::collected(JSContextGroupRef /*group*/, void* watch)
{
    auto& self = *static_cast<ScriptWatch*>(watch);
    const auto now = Clock::now();
    if (self.runs_ == 0 || now - self.lastCollection_ < checkInterval || now < self.lastTimer_)
        return;
    self.lastCollection_ = now;
    self.startTimer(0s);
    std::this_thread::sleep_for(
        timerLatency); // otherwise jobs would start more timers before this one runs out
}

void ScriptWatch::startTimer(Clock::duration delay)
{
    const auto now = Clock::now();
    lastTimer_ = std::clamp(
        now + delay, std::min(lastTimer_ + distanceOfTimers, now + longestDelay), now + longestDelay);
    const std::chrono::duration<double> seconds = lastTimer_ - now;
    JSContextGroupSetExecutionTimeLimit(group_, seconds.count(), shouldTerminate, this);
}

ScriptWatch::Excess ScriptWatch::measure(JSContextRef context) const
{
    if (time_ && processorTime() - started_ > *time_)
        return Excess::time;
    if (memory_ <= 0)
        return Excess::none;
    JSObjectRef statistics = JSGetMemoryUsageStatistics(context);
    const double used = std::max(
        statistic(context, statistics, u"heapSize"_s), statistic(context, statistics, u"heapCapacity"_s));
    return used > static_cast<double>(memory_) ? Excess::memory : Excess::none;
}

} // namespace quor::toolkit
