// SPDX-License-Identifier: MIT
// 100,000 entries set, flushed and read again. The floor is RapidJSON writing and reading the same files.
#include "ToolKit/Data/Lists/PersistableList.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <rapidjson/document.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include <functional>
#include <map>
#include <optional>
#include <set>
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
constexpr int taskCount = 100;

struct Sample {
    QString key;
    TimeEntry entry;
};

std::vector<Sample> samples()
{
    std::vector<QString> tasks;
    tasks.reserve(taskCount);
    for (int i = 0; i < taskCount; ++i)
        tasks.push_back(u"8f14e45f-ceea-467f-9575-%1"_s.arg(i, 12, 10, QLatin1Char('0')));
    std::vector<Sample> samples;
    for (int i = 0; i < entryCount; ++i) {
        const double start = 1'700'000'000.5 + i * 60.0;
        const QString key = u"entry-%1"_s.arg(i, 8, 16, QLatin1Char('0'));
        samples.push_back({key, {tasks[std::size_t(i % taskCount)], start, start + 59.25}});
    }
    return samples;
}

/// A new folder for each round. All are removed at the very end, as creating files is slow right after many
/// were removed.
class Folders {
public:
    QString next() { return all_.filePath(QString::number(++count_)); }

private:
    QTemporaryDir all_;
    int count_ = 0;
};

void list(benchmark::State& state, Folders& folders)
{
    const auto entries = samples();
    for (auto _ : state) {
        std::optional<quor::toolkit::PersistableList<TimeEntry>> list(folders.next());
        for (const Sample& sample : entries)
            list->set(sample.entry, sample.key);
        list->flush();
        const auto keys = list->allKeys();
        if (keys.size() != entryCount)
            state.SkipWithError("not all entries came back");
        state.PauseTiming(); // freeing the entries is not measured
        list.reset();
        state.ResumeTiming();
    }
}

// The same entries as plain strings, already sorted by file, so that only JSON and files are measured.
struct PlainEntry {
    std::string key;
    const std::string* task;
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
        text(*entry.task);
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

void floorByHand(benchmark::State& state, Folders& folders)
{
    std::set<std::string> tasks;
    std::map<QString, std::vector<PlainEntry>> files;
    for (const auto& [key, entry] : samples())
        files[quor::toolkit::storageKey(key)].push_back(
            {key.toStdString(), &*tasks.insert(entry.task.toStdString()).first, entry.start, entry.end});
    for (auto _ : state) {
        const QString folder = folders.next();
        QDir().mkpath(folder);
        for (const auto& [name, entries] : files)
            writeFile(folder + u'/' + name, entries);
        std::size_t count = 0;
        for (const auto& [name, entries] : files)
            count += readFile(folder + u'/' + name);
        if (count != entryCount)
            state.SkipWithError("not all entries came back");
    }
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    Folders folders;
    const auto add = [&folders](const char* name, auto run) {
        benchmark::RegisterBenchmark(name, run, std::ref(folders))
            ->Unit(benchmark::kMillisecond)
            ->MeasureProcessCPUTime()
            ->UseRealTime();
    };
    add("PersistableList/floor", floorByHand);
    add("PersistableList", list);
    benchmark::RunSpecifiedBenchmarks();
}
