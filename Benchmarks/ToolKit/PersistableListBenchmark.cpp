// SPDX-License-Identifier: MIT
// 100,000 entries set, flushed and read again, against RapidJSON writing and reading the same files.
#include "ToolKit/Data/PersistableList.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <map>
#include <string>

using namespace Qt::StringLiterals;

namespace {

struct TimeEntry {
    QString task;
    double start = 0;
    double end = 0;
};

} // namespace

template <>
struct quor::toolkit::JSONFields<TimeEntry> {
    static constexpr auto fields = std::tuple(jsonField("task", &TimeEntry::task),
        jsonField("start", &TimeEntry::start), jsonField("end", &TimeEntry::end));
};

namespace {

constexpr int entryCount = 100'000;

struct Sample {
    QString key;
    TimeEntry entry;
};

std::vector<Sample> samples()
{
    std::vector<Sample> samples;
    for (int i = 0; i < entryCount; ++i) {
        const double start = 1'700'000'000.5 + i * 60.0;
        samples.push_back({u"entry-%1"_s.arg(i, 8, 16, QLatin1Char('0')),
            {u"8f14e45f-ceea-467f-9575-%1"_s.arg(i % 100, 12, 10, QLatin1Char('0')), start, start + 59.25}});
    }
    return samples;
}

void list(benchmark::State& state)
{
    const auto entries = samples();
    for (auto _ : state) {
        const QTemporaryDir folder;
        quor::toolkit::PersistableList<TimeEntry> list(folder.filePath(u"list"_s));
        for (const Sample& sample : entries)
            list.set(sample.entry, sample.key);
        list.flush();
        if (list.allKeys().size() != entryCount)
            state.SkipWithError("not all entries came back");
    }
}

// The same entries as plain strings, already sorted by file: what remains is JSON and files.
struct PlainEntry {
    std::string key;
    std::string task;
    double start;
    double end;
};

void writeFile(const QString& path, const std::vector<PlainEntry>& entries)
{
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer(buffer);
    const auto text = [&writer](const std::string& value) {
        writer.String(value.data(), static_cast<rapidjson::SizeType>(value.size()));
    };
    writer.StartObject();
    for (const PlainEntry& entry : entries) {
        text(entry.key);
        writer.StartObject();
        writer.Key("task");
        text(entry.task);
        writer.Key("start");
        writer.Double(entry.start);
        writer.Key("end");
        writer.Double(entry.end);
        writer.EndObject();
    }
    writer.EndObject();
    QFile file(path);
    if (file.open(QIODevice::WriteOnly | QIODevice::Unbuffered))
        file.write(buffer.GetString(), static_cast<qint64>(buffer.GetSize()));
}

std::size_t readFile(const QString& path)
{
    constexpr unsigned flags = rapidjson::kParseIterativeFlag | rapidjson::kParseFullPrecisionFlag
        | rapidjson::kParseValidateEncodingFlag;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
        return 0;
    const QByteArray text = file.readAll();
    rapidjson::Document document;
    document.Parse<flags>(text.constData(), static_cast<std::size_t>(text.size()));
    return document.IsObject() ? document.MemberCount() : 0;
}

void floorByHand(benchmark::State& state)
{
    std::map<QString, std::vector<PlainEntry>> files;
    for (const auto& [key, entry] : samples())
        files[quor::toolkit::storageKey(key)].push_back(
            {key.toStdString(), entry.task.toStdString(), entry.start, entry.end});
    for (auto _ : state) {
        const QTemporaryDir folder;
        for (const auto& [name, entries] : files)
            writeFile(folder.filePath(name), entries);
        std::size_t count = 0;
        for (const auto& [name, entries] : files)
            count += readFile(folder.filePath(name));
        if (count != entryCount)
            state.SkipWithError("not all entries came back");
    }
}

BENCHMARK(floorByHand)->Name("PersistableList/floor")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(list)->Name("PersistableList")->Unit(benchmark::kMillisecond)->UseRealTime();

} // namespace

BENCHMARK_MAIN();
