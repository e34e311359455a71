// SPDX-License-Identifier: MIT
// Reads a month from a calendar of 10,000 events in a file each, after the first scan, and compares that with
// two floors, which walk the same events by hand. Each round reads the twelve months of a year, one by one.
//
// Our store checks the disk for changes and opens the calendar's folder for each read. It finds events that
// happen once by an index of their starts, parses and expands the rules of each series, and creates objects
// that can be saved. The floors do not touch the disk. Both walk all events and expand series with libical
// alone. `components` keeps libical's components, and reads times from all of them and fields from those that
// overlap. `fields` has times and fields read beforehand; it compares two numbers per event and copies.
#include "CalendarByHand.h"
#include "ToolKit/Calendar/Stores/EventStore.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <functional>
#include <map>

using namespace quor::toolkit;
using namespace quor::benchmarks;
using namespace Qt::StringLiterals;

namespace {

constexpr int eventCount = 10'000;

constexpr std::int64_t firstDay = 1'640'995'200; // 2022
constexpr std::int64_t aDay = 86'400;
constexpr int years = 5;

struct Month {
    Date start;
    Date end;
};

/// Of 2024.
Month month(std::size_t number)
{
    constexpr std::array firstDays{0, 31, 60, 91, 121, 152, 182, 213, 244, 274, 305, 335, 366};
    const auto day = [&](std::size_t index) {
        return quor::platform::dateFromSeconds(double(1'704'067'200 + firstDays.at(index) * aDay));
    };
    return {day(number % 12), day(number % 12 + 1)};
}

/// Rules as people use them; most of them end. 2022 began on a Saturday.
QByteArray rule(int number, std::int64_t start)
{
    const auto weekday = static_cast<std::size_t>((start - firstDay) / aDay % 7);
    const QByteArray day = std::array{"SA", "SU", "MO", "TU", "WE", "TH", "FR"}.at(weekday);
    const QByteArray halfAYearLater = QDateTime::fromSecsSinceEpoch(start + 182 * aDay, Qt::UTC)
                                          .toString(u"yyyyMMdd'T'HHmmss'Z'"_s)
                                          .toLatin1();
    switch (number % 5) {
    case 0:
        return "FREQ=WEEKLY;BYDAY=" + day;
    case 1:
        return "FREQ=WEEKLY;INTERVAL=2;BYDAY=" + day + ";UNTIL=" + halfAYearLater;
    case 2:
        return "FREQ=DAILY;COUNT=10";
    case 3:
        return "FREQ=MONTHLY;COUNT=12";
    default:
        return "FREQ=MONTHLY;BYDAY=1" + day;
    }
}

/// Series are in a zone with summer time, other events in UTC.
QByteArray event(int number, bool recurs)
{
    // Scattered over the years, on quarter hours of the working day, the same in each run.
    const std::int64_t place = number * 2'654'435'761LL % (std::int64_t(years) * 365 * 40);
    const std::int64_t start = firstDay + place / 40 * aDay + std::int64_t(8) * 3600 + place % 40 * 900;
    const auto time = [&](const char* name, std::int64_t seconds) {
        const QByteArray text
            = QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC).toString(u"yyyyMMdd'T'HHmmss"_s).toLatin1();
        return name + (recurs ? ";TZID=Europe/Berlin:" + text : ":" + text + "Z") + "\r\n";
    };
    const QByteArray id = QByteArray::number(number);
    return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//calendar benchmark//\r\nBEGIN:VEVENT\r\nUID:" + id
        + "-f14e-45fc-9575-000000000000\r\nDTSTAMP:20220101T000000Z\r\n" + time("DTSTART", start)
        + time("DTEND", start + std::int64_t(900) * (2 + number % 6))
        + (recurs ? "RRULE:" + rule(number / 10, start) + "\r\n" : "") + "SUMMARY:Meeting " + id
        + " on the release\r\n" + (number % 2 == 0 ? "DESCRIPTION:What is left\\, and who does it\r\n" : "")
        + (number % 3 == 0 ? "LOCATION:Room " + id + "\r\n" : "") + "END:VEVENT\r\nEND:VCALENDAR\r\n";
}

/// A folder with one calendar of 10,000 files.
class Calendar {
public:
    explicit Calendar(int recurringPercent)
    {
        QDir(folder_.path()).mkpath(u"local/team"_s);
        for (int i = 0; i < eventCount; ++i) {
            QFile file(folder_.filePath(u"local/team/%1.ics"_s.arg(i)));
            if (!file.open(QIODevice::WriteOnly))
                qFatal("no folder");
            file.write(event(i, i % 100 < recurringPercent));
        }
    }

    [[nodiscard]] EventStoreOptions options() const
    {
        return {folder_.path(), [](EntityType) { return AuthorizationStatus::fullAccess; }};
    }
    [[nodiscard]] QString path() const { return folder_.filePath(u"local/team"_s); }

    EventStore& store() { return store_; }
    const CalendarByHand& byHand()
    {
        if (!byHand_)
            byHand_ = std::make_unique<CalendarByHand>(path());
        return *byHand_;
    }

private:
    QTemporaryDir folder_;
    EventStore store_{options()};
    std::unique_ptr<CalendarByHand> byHand_;
};

std::vector<std::shared_ptr<Event>> read(EventStore& store, const Month& range)
{
    return store.eventsMatching(store.predicateForEvents(range.start, range.end));
}

/// Whether the store and both floors find the same events, in each month. Also makes the store's first scan.
bool areEqual(Calendar& calendar)
{
    const auto sorted = [](std::vector<EventFields> list) {
        std::ranges::sort(
            list, {}, [](const EventFields& each) { return std::pair(each.startDate, each.title); });
        return list;
    };
    for (std::size_t i = 0; i < 12; ++i) {
        std::vector<EventFields> ours;
        for (const auto& event : read(calendar.store(), month(i)))
            ours.push_back(event->fields());
        const auto [start, end] = month(i);
        ours = sorted(ours);
        if (ours.size() < 100 || ours != sorted(calendar.byHand().walkComponents(start, end))
            || ours != sorted(calendar.byHand().walkFields(start, end)))
            return false;
    }
    return true;
}

using Calendars = std::map<int, std::unique_ptr<Calendar>>;

/// Makes the calendar at the first call.
Calendar& calendar(Calendars& calendars, int recurringPercent)
{
    auto& found = calendars[recurringPercent];
    if (!found)
        found = std::make_unique<Calendar>(recurringPercent);
    return *found;
}

template <class Read>
void readMonths(benchmark::State& state, Calendars& calendars, Read readMonth)
{
    Calendar& found = calendar(calendars, int(state.range(0)));
    if (!areEqual(found))
        state.SkipWithError("the store and the floors find different events");
    std::size_t count = 0;
    for ([[maybe_unused]] const auto _ : state) {
        for (std::size_t i = 0; i < 12; ++i) {
            const auto events = readMonth(found, month(i));
            count += events.size();
            benchmark::DoNotOptimize(events);
        }
    }
    state.counters["events"] = benchmark::Counter(double(count), benchmark::Counter::kAvgIterations);
}

/// The first read of a new store, which reads and parses all files.
void firstScan(benchmark::State& state, Calendars& calendars)
{
    const Calendar& found = calendar(calendars, int(state.range(0)));
    for ([[maybe_unused]] const auto _ : state) {
        EventStore store(found.options());
        benchmark::DoNotOptimize(read(store, month(0)));
    }
}

/// Reads and parses all files, and the fields in them.
void firstScanByHand(benchmark::State& state, Calendars& calendars)
{
    const Calendar& found = calendar(calendars, int(state.range(0)));
    for ([[maybe_unused]] const auto _ : state)
        benchmark::DoNotOptimize(CalendarByHand(found.path()));
}

} // namespace

int main(int argc, char** argv)
{
    benchmark::Initialize(&argc, argv);
    Calendars calendars;
    const auto addMonths = [&](const char* name, auto readMonth) {
        benchmark::RegisterBenchmark(name,
            [&calendars, readMonth](benchmark::State& state) { readMonths(state, calendars, readMonth); })
            ->ArgName("recurring%")
            ->Arg(0)
            ->Arg(10)
            ->Unit(benchmark::kMicrosecond);
    };
    addMonths("TwelveMonths/floor:components", [](Calendar& from, const Month& range) {
        return from.byHand().walkComponents(range.start, range.end);
    });
    addMonths("TwelveMonths/floor:fields",
        [](Calendar& from, const Month& range) { return from.byHand().walkFields(range.start, range.end); });
    addMonths("TwelveMonths", [](Calendar& from, const Month& range) { return read(from.store(), range); });
    const auto addScan = [&](const char* name, void (*run)(benchmark::State&, Calendars&)) {
        benchmark::RegisterBenchmark(name, run, std::ref(calendars))
            ->ArgName("recurring%")
            ->Arg(0)
            ->Arg(10)
            ->Unit(benchmark::kMillisecond);
    };
    addScan("FirstScan/floor", firstScanByHand);
    addScan("FirstScan", firstScan);
    benchmark::RunSpecifiedBenchmarks();
}
