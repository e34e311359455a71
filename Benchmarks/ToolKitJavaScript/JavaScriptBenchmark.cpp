// SPDX-License-Identifier: MIT
// A fresh engine that runs a trivial script, against the C API alone: a context in a virtual machine of its
// own, which evaluates the same text and is released. Ours sets `utils` and its functions besides, keeps the
// watch for time and memory, and hands the value out. Both read the value and release all in the same round.
// Besides, the process' own memory after 200 runs against that after 1,000 more. The library itself loses a
// third of a KiB of the heap with each virtual machine, so the floor grows as well.
#include "ToolKit/JavaScript/JavaScriptPlugin.h"

#include <JavaScriptCore/JavaScript.h>

#include <QDir>
#include <QFile>

#include <benchmark/benchmark.h>

#include <chrono>
#include <thread>

#include <malloc.h>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;

namespace {

double runByHand()
{
    JSGlobalContextRef context = JSGlobalContextCreate(nullptr);
    JSStringRef script = JSStringCreateWithUTF8CString("1+1");
    JSValueRef value = JSEvaluateScript(context, script, nullptr, nullptr, 1, nullptr);
    const double number = value ? JSValueToNumber(context, value, nullptr) : 0;
    JSStringRelease(script);
    JSGlobalContextRelease(context);
    return number;
}

double runPlugin()
{
    // None of it costs anything: an engine is made by `execute`.
    const JavaScriptPlugin plugin{QUrl::fromLocalFile(QDir::tempPath()), {{u"greeting"_s, u"Hello"_s}}};
    const auto value = plugin.execute(u"1+1"_s);
    return value ? value->toDouble() : 0;
}

double runPluginWithTimeLimit()
{
    JavaScriptPlugin plugin{QUrl::fromLocalFile(QDir::tempPath()), {}};
    plugin.timeLimit = std::chrono::seconds(5);
    const auto value = plugin.execute(u"1+1"_s);
    return value ? value->toDouble() : 0;
}

void fresh(benchmark::State& state, double (*run)())
{
    run(); // the first engine of a process prepares what all of them share
    for ([[maybe_unused]] const auto _ : state) {
        if (run() != 2)
            state.SkipWithError("not 2");
    }
}

/// What is allocated and not freed, but for the engine's own pages, in KiB.
double heapMemory()
{
    return static_cast<double>(mallinfo2().uordblks) / 1024;
}

/// Of this process alone, in KiB, after the engine's allocator had the time to give free pages back.
double privateMemory()
{
    std::this_thread::sleep_for(std::chrono::seconds(1));
    QFile file(u"/proc/self/smaps_rollup"_s);
    if (!file.open(QIODevice::ReadOnly))
        return 0;
    double sum = 0;
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (line.startsWith("Private_Dirty:") || line.startsWith("Private_Clean:"))
            sum += line.simplified().split(' ').at(1).toDouble();
    }
    return sum;
}

void memory(benchmark::State& state, double (*run)())
{
    const auto runRepeatedly = [&](int times) {
        for (int i = 0; i < times; ++i) {
            if (run() != 2)
                state.SkipWithError("not 2");
        }
    };
    for ([[maybe_unused]] const auto _ : state) {
        runRepeatedly(200);
        const double heap = heapMemory();
        const double before = privateMemory();
        runRepeatedly(1000);
        const double heapGrowth = heapMemory() - heap;
        const double after = privateMemory();
        state.counters["before_KiB"] = before;
        state.counters["after_KiB"] = after;
        state.counters["growth_KiB"] = after - before;
        state.counters["heapGrowth_KiB"] = heapGrowth;
    }
}

// The processor time is the whole process', since the engine has threads of its own.
BENCHMARK_CAPTURE(fresh, byHand, runByHand)
    ->Unit(benchmark::kMicrosecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK_CAPTURE(fresh, plugin, runPlugin)
    ->Unit(benchmark::kMicrosecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK_CAPTURE(fresh, pluginWithTimeLimit, runPluginWithTimeLimit)
    ->Unit(benchmark::kMicrosecond)
    ->MeasureProcessCPUTime()
    ->UseRealTime();
BENCHMARK_CAPTURE(memory, byHand, runByHand)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(memory, plugin, runPlugin)->Iterations(1)->Unit(benchmark::kMillisecond);

} // namespace

BENCHMARK_MAIN();
