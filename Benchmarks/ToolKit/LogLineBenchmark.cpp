// SPDX-License-Identifier: MIT
#include "ToolKit/Logging/Logger.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <fcntl.h>
#include <string_view>
#include <unistd.h>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;

namespace {

constexpr std::string_view readyLine
    = "2026-11-16 16:19:24 +0000: JSONHelper.decode:21: decodeError: The data is not valid\n";

// The floor: a finished line, appended to a file with a known name.
void openAppendCloseByHand(benchmark::State& state)
{
    const QTemporaryDir folder;
    const QByteArray path = QFile::encodeName(folder.filePath(u"2026-11-16.log"_s));
    for ([[maybe_unused]] const auto _ : state) {
        const int file = ::open(path.constData(), O_WRONLY | O_APPEND | O_CREAT | O_CLOEXEC, 0600);
        benchmark::DoNotOptimize(::write(file, readyLine.data(), readyLine.size()));
        ::close(file);
    }
}
BENCHMARK(openAppendCloseByHand);

void logLine(benchmark::State& state)
{
    const QTemporaryDir folder;
    FileErrorLogger::setup(folder.path());
    FileErrorLogger::setEnabled(true);
    for ([[maybe_unused]] const auto _ : state)
        Logger::log(u"decodeError: The data is not valid", "Data/JSONHelper.cpp",
            "decode(data:type:decoder:)", 21, true);
    FileErrorLogger::setEnabled(false);
    FileErrorLogger::setup(std::nullopt);
}
BENCHMARK(logLine);

void logLineWhileOff(benchmark::State& state)
{
    for ([[maybe_unused]] const auto _ : state)
        Logger::log(u"decodeError: The data is not valid", true);
}
BENCHMARK(logLineWhileOff);

} // namespace

BENCHMARK_MAIN();
