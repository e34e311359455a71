// SPDX-License-Identifier: MIT
// Inserts 100,000 records and saves them at once, compared with SQLite using a prepared statement in one
// transaction, on the same table in a file with the same settings.
#include "ToolKit/CoreData/ManagedObjectContext.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include <functional>

using namespace quor::toolkit;
using namespace Qt::StringLiterals;

namespace {

constexpr int recordCount = 100'000;

class TimeEntry : public ManagedObject { };

/// "uniqueID" always has an index; the other name has none.
QString identifierKey(bool isIndexed)
{
    return isIndexed ? u"uniqueID"_s : u"identifier"_s;
}

std::vector<EntityDescription> entities(bool isIndexed)
{
    return {EntityDescription::of<TimeEntry>({
        {identifierKey(isIndexed), AttributeType::text},
        {u"task"_s, AttributeType::text},
        {u"start"_s, AttributeType::date},
        {u"duration"_s, AttributeType::real},
        {u"isBillable"_s, AttributeType::boolean},
    })};
}

struct Sample {
    QString uniqueID;
    QString task;
    double start;
};

std::vector<Sample> samples()
{
    std::vector<Sample> samples;
    for (int i = 0; i < recordCount; ++i) {
        // Like random identifiers, but the same in each run.
        const QString digits = u"%1"_s.arg(i * 2'654'435'761ULL % 4'294'967'296ULL, 8, 16, QChar(u'0'));
        samples.push_back(
            {digits + u"-f14e-45fc-9575-000000000000"_s, u"Task %1"_s.arg(i % 100), 1.7e9 + 60.0 * i});
    }
    return samples;
}

/// A new store with empty tables for each round.
class Stores {
public:
    QString next(bool isIndexed)
    {
        QString path = folder_.filePath(QString::number(++count_));
        if (ManagedObjectContext(path, entities(isIndexed)).openError())
            qFatal("no store");
        return path;
    }
    void clear() { QFile::remove(folder_.filePath(QString::number(count_))); }

private:
    QTemporaryDir folder_;
    int count_ = 0;
};

void insertAndSave(benchmark::State& state, Stores& stores)
{
    const auto all = samples();
    const bool isIndexed = state.range(0) != 0;
    const QString identifier = identifierKey(isIndexed);
    for (auto _ : state) {
        state.PauseTiming();
        auto context = std::make_unique<ManagedObjectContext>(stores.next(isIndexed), entities(isIndexed));
        state.ResumeTiming();
        context->performBlockAndWait([&] {
            for (const Sample& sample : all) {
                auto entry = context->insertObject<TimeEntry>();
                entry.setValue(sample.uniqueID, identifier);
                entry.setValue(sample.task, u"task");
                entry.setValue(quor::platform::dateFromSeconds(sample.start), u"start");
                entry.setValue(1800.5, u"duration");
                entry.setValue(true, u"isBillable");
            }
        });
        if (!context->save())
            state.SkipWithError("not saved");
        state.PauseTiming();
        context.reset();
        stores.clear();
        state.ResumeTiming();
    }
}

void bindText(sqlite3_stmt* statement, int parameter, const QByteArray& text)
{
    sqlite3_bind_text(statement, parameter, text.constData(), static_cast<int>(text.size()), SQLITE_STATIC);
}

void floorByHand(benchmark::State& state, Stores& stores)
{
    const auto all = samples();
    for (auto _ : state) {
        state.PauseTiming();
        sqlite3* database = nullptr;
        sqlite3_stmt* statement = nullptr;
        if (sqlite3_open(QFile::encodeName(stores.next(state.range(0) != 0)).constData(), &database)
            != SQLITE_OK)
            state.SkipWithError("not opened");
        sqlite3_exec(database, "PRAGMA synchronous = FULL", nullptr, nullptr, nullptr);
        state.ResumeTiming();
        sqlite3_exec(database, "BEGIN IMMEDIATE", nullptr, nullptr, nullptr);
        sqlite3_prepare_v2(
            database, "INSERT INTO TimeEntry VALUES(?1,?2,?3,?4,?5,?6)", -1, &statement, nullptr);
        sqlite3_int64 number = 0;
        for (const Sample& sample : all) {
            const QByteArray uniqueID = sample.uniqueID.toUtf8();
            const QByteArray task = sample.task.toUtf8();
            sqlite3_bind_int64(statement, 1, ++number);
            bindText(statement, 2, uniqueID);
            bindText(statement, 3, task);
            sqlite3_bind_double(statement, 4, sample.start);
            sqlite3_bind_double(statement, 5, 1800.5);
            sqlite3_bind_int64(statement, 6, 1);
            if (sqlite3_step(statement) != SQLITE_DONE)
                state.SkipWithError("not inserted");
            sqlite3_reset(statement);
        }
        sqlite3_finalize(statement);
        if (sqlite3_exec(database, "COMMIT", nullptr, nullptr, nullptr) != SQLITE_OK)
            state.SkipWithError("not saved");
        state.PauseTiming();
        sqlite3_close(database);
        stores.clear();
        state.ResumeTiming();
    }
}

/// Fetches one of 100,000 records by its identifier, as `fetchSingleton` does, with or without pending
/// changes.
void fetchOne(benchmark::State& state, Stores& stores)
{
    const auto all = samples();
    ManagedObjectContext context(stores.next(true), entities(true));
    for (const Sample& sample : all)
        context.insertObject<TimeEntry>().setValue(sample.uniqueID, u"uniqueID");
    if (state.range(0) == 0 && !context.save())
        state.SkipWithError("not saved");
    std::size_t next = 0;
    for (auto _ : state) {
        const auto& sample = all[next++ % all.size()];
        if (!context.fetchSingleton<TimeEntry>(sample.uniqueID).isAttached())
            state.SkipWithError("not found");
    }
    stores.clear();
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    Stores stores;
    const auto add = [&stores](const char* name, auto run) {
        return benchmark::RegisterBenchmark(name, run, std::ref(stores))
            ->MeasureProcessCPUTime()
            ->UseRealTime();
    };
    for (const int isIndexed : {1, 0}) {
        add("Store/floor", floorByHand)->ArgName("index")->Arg(isIndexed)->Unit(benchmark::kMillisecond);
        add("Store", insertAndSave)->ArgName("index")->Arg(isIndexed)->Unit(benchmark::kMillisecond);
    }
    add("Store/fetchOne", fetchOne)->ArgName("pending")->Arg(0)->Arg(1)->Unit(benchmark::kMicrosecond);
    benchmark::RunSpecifiedBenchmarks();
}
