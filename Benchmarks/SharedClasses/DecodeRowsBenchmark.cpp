// SPDX-License-Identifier: MIT
// Decoding the rows of a menu. The floor is RapidJSON's document alone, with the same flags.
#include "InterAppCommBridge/RecordCoding.h"
#include "ToolKit/Data/JSON/JSONDecoder.h"
#include "ToolKit/Data/JSON/JSONEncoder.h"

#include <benchmark/benchmark.h>
#include <rapidjson/document.h>

using namespace Qt::StringLiterals;
using quor::MenuEntry;

namespace {

constexpr int rowCount = 10'000;

QByteArray rows()
{
    std::vector<MenuEntry> entries;
    for (int row = 0; row < rowCount; ++row) {
        const QString taskID = u"8f14e45f-ceea-467f-9575-%1"_s.arg(row, 12, 10, QLatin1Char('0'));
        MenuEntry::Entry entry;
        entry.label = u"Design of the \u00dcberblick page %1"_s.arg(row);
        entry.iconName = u"play"_s;
        entry.color = 0xFF0000U + unsigned(row);
        entry.action.value = MenuEntry::Entry::Action::Start{taskID};
        entries.push_back({entry});
    }
    return quor::toolkit::JSONEncoder().encode(entries).value();
}

void floorDocument(benchmark::State& state)
{
    constexpr unsigned flags = rapidjson::kParseIterativeFlag | rapidjson::kParseFullPrecisionFlag
        | rapidjson::kParseValidateEncodingFlag;
    const QByteArray text = rows();
    for (auto _ : state) {
        rapidjson::Document document;
        document.Parse<flags>(text.constData(), static_cast<std::size_t>(text.size()));
        if (document.HasParseError() || document.Size() != rowCount)
            state.SkipWithError("not parsed");
        benchmark::DoNotOptimize(document);
    }
    state.SetBytesProcessed(state.iterations() * text.size());
}

void decodeRows(benchmark::State& state)
{
    const QByteArray text = rows();
    for (auto _ : state) {
        const auto entries = quor::toolkit::JSONDecoder().decode<std::vector<MenuEntry>>(text);
        if (!entries || entries->size() != rowCount)
            state.SkipWithError("not decoded");
        benchmark::DoNotOptimize(entries);
    }
    state.SetBytesProcessed(state.iterations() * text.size());
}

BENCHMARK(floorDocument)->Name("DecodeRows/floor")->Unit(benchmark::kMicrosecond);
BENCHMARK(decodeRows)->Name("DecodeRows")->Unit(benchmark::kMicrosecond);

} // namespace

BENCHMARK_MAIN();
