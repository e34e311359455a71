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
constexpr auto interval = 20ms;
constexpr auto soon = 1ms;
constexpr auto apart = 2ms; ///< timers of one engine
constexpr auto latest = 1s;
constexpr auto untilAsked = 200us; ///< that a timer of nought takes at most, as a rule

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
    if (!isOn())
        return;
    // The first time allocates, which a collection must not.
    JSContextGroupSetExecutionTimeLimit(group_, 1, shouldTerminate, this);
    JSContextGroupClearExecutionTimeLimit(group_);
    JSContextGroupAddHeapFinalizer(group_, collected, this);
}

ScriptWatch::Run::Run(ScriptWatch& watch)
    : watch_(watch)
{
    if (watch_.depth_++ > 0)
        return;
    watch_.excess_ = Excess::none;
    if (watch_.isOn())
        watch_.started_ = processorTime();
}

ScriptWatch::Run::~Run()
{
    --watch_.depth_;
}

ScriptWatch::Script::Script(ScriptWatch& watch)
    : watch_(watch)
{
    if (watch_.scripts_++ == 0 && watch_.time_)
        watch_.arm(interval);
}

ScriptWatch::Script::~Script()
{
    if (--watch_.scripts_ == 0 && watch_.isOn())
        JSContextGroupClearExecutionTimeLimit(watch_.group_);
}

bool ScriptWatch::endAgain()
{
    if (excess_ == Excess::none)
        return false;
    arm(soon);
    return true;
}

bool ScriptWatch::shouldTerminate(JSContextRef context, void* watch)
{
    auto& self = *static_cast<ScriptWatch*>(watch);
    if (!self.isRunning()) { // a timer was left over
        JSContextGroupClearExecutionTimeLimit(self.group_);
        return false;
    }
    if (self.excess_ == Excess::none)
        self.excess_ = self.measure(context);
    // The engine asks once for each time that it is told to.
    const bool goesOn = self.scripts_ > 0 && (self.time_ || self.excess_ != Excess::none);
    if (goesOn)
        self.arm(interval);
    else
        JSContextGroupClearExecutionTimeLimit(self.group_);
    return self.excess_ != Excess::none;
}

// Has the engine ask at the next chance, as it is no time for questions now.
void ScriptWatch::collected(JSContextGroupRef /*group*/, void* watch)
{
    auto& self = *static_cast<ScriptWatch*>(watch);
    const auto now = Clock::now();
    if (self.depth_ == 0 || now - self.measured_ < interval || now < self.lastTimer_)
        return;
    self.measured_ = now;
    self.arm(0s);
    std::this_thread::sleep_for(untilAsked); // or jobs would set more timers before the first runs out
}

void ScriptWatch::arm(Clock::duration delay)
{
    const auto now = Clock::now();
    lastTimer_ = std::clamp(now + delay, std::min(lastTimer_ + apart, now + latest), now + latest);
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
