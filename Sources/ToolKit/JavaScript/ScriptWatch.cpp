// SPDX-License-Identifier: MIT
#include "ToolKit/JavaScript/ScriptWatch.h"

#include "ToolKit/JavaScript/ScriptBridge.h"

#include <algorithm>
#include <ctime>

// The library exports these without declaring them.
extern "C" {
typedef bool (*JSShouldTerminateCallback)(JSContextRef context, void* data);
void JSContextGroupSetExecutionTimeLimit(
    JSContextGroupRef group, double seconds, JSShouldTerminateCallback callback, void* data);
JSObjectRef JSGetMemoryUsageStatistics(JSContextRef context);
}

namespace quor::toolkit {

using namespace Qt::StringLiterals;

namespace {

constexpr double interval = 0.02;
constexpr double soon = 0.001;

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
    if (time_ || memory_ > 0)
        arm(interval);
}

ScriptWatch::Run::Run(ScriptWatch& watch)
    : watch_(watch)
{
    if (watch_.depth_++ > 0)
        return;
    watch_.excess_ = Excess::none;
    if (watch_.time_)
        watch_.started_ = processorTime();
}

ScriptWatch::Run::~Run()
{
    --watch_.depth_;
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
    if (self.excess_ == Excess::none)
        self.excess_ = self.measure(context);
    self.arm(interval); // the engine asks once for each time that it is told to
    return self.excess_ != Excess::none;
}

void ScriptWatch::arm(double seconds)
{
    JSContextGroupSetExecutionTimeLimit(group_, seconds, shouldTerminate, this);
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
