// SPDX-License-Identifier: MIT
// A new engine that runs a trivial script, compared with the C API alone, which makes a context in its own
// virtual machine, evaluates the same text and releases the context. Our engine also sets `utils` and its
// functions, and returns the value. Both read the value and release everything in
// the same round. With a time limit, the same runs in a process of its own. Also measures the memory of the
// process after 200 runs and after 1,000 more. The library itself leaks a third of a KiB with each virtual
// machine, so the memory of the comparison grows too.
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
    // A plug-in itself costs nothing: `execute` makes the engine.
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
    run(); // the first engine of a process initializes what all of them share
    for ([[maybe_unused]] const auto _ : state) {
        if (run() != 2)
            state.SkipWithError("not 2");
    }
}

/// Allocated memory without the pages of the engine's own allocator, in KiB.
double heapMemory()
{
    return static_cast<double>(mallinfo2().uordblks) / 1024;
}

/// Private memory of this process in KiB, after the engine's allocator had time to release free pages.
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

// Measures the processor time of the whole process, because the engine has its own threads.
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
