// SPDX-License-Identifier: MIT
#include "Peer/Model/Tracker.h"

#include "Peer/Model/Store.h"

#include <QRandomGenerator>

#include <algorithm>
#include <tuple>

using namespace Qt::StringLiterals;

namespace quor::peer {

namespace {

int number(const Task& task)
{
    return task.id.mid(1).toInt();
}

Outcome outcome(bool isStored)
{
    return isStored ? Outcome::done : Outcome::notStored;
}

// Begins with any letter or digit, so that the list spreads the entries over many small files.
QString newEntryID()
{
    return QString::number(QRandomGenerator::global()->generate64(), 36);
}

// A delta from outside can be any number. Changes are clamped to possible moments anyway, so a century is
// enough.
std::chrono::duration<double> seconds(double delta)
{
    constexpr double century = 100.0 * 366 * 86400;
    return std::chrono::duration<double>(std::clamp(delta, -century, century));
}

} // namespace

Tracker::Tracker(const platform::Clock& clock, Store& store)
    : clock_(clock)
    , store_(store)
{
}

void Tracker::load()
{
    tasks_ = store_.tasks();
    entries_ = store_.entries();
    settings_ = store_.settings();
    std::sort(tasks_.begin(), tasks_.end(),
        [](const Task& left, const Task& right) { return number(left) < number(right); });
}

const Task* Tracker::task(const QString& id) const
{
    const auto found
        = std::find_if(tasks_.begin(), tasks_.end(), [&](const Task& task) { return task.id == id; });
    return found == tasks_.end() ? nullptr : &*found;
}

const TimeEntry* Tracker::runningEntry(const QString& taskID) const
{
    const auto found = std::find_if(entries_.begin(), entries_.end(),
        [&](const TimeEntry& entry) { return entry.isRunning() && entry.taskID == taskID; });
    return found == entries_.end() ? nullptr : &*found;
}

std::vector<TimeEntry> Tracker::runningEntries() const
{
    std::vector<TimeEntry> running;
    std::copy_if(entries_.begin(), entries_.end(), std::back_inserter(running),
        [](const TimeEntry& entry) { return entry.isRunning(); });
    std::sort(running.begin(), running.end(), [](const TimeEntry& left, const TimeEntry& right) {
        return std::tie(left.start, left.id) < std::tie(right.start, right.id);
    });
    return running;
}

Outcome Tracker::addTasks(const QStringList& names, std::optional<std::uint32_t> color)
{
    int next = tasks_.empty() ? 1 : number(tasks_.back()) + 1;
    std::vector<Task> added;
    for (const QString& name : names)
        added.push_back({u"T%1"_s.arg(next++), name, color});
    tasks_.insert(tasks_.end(), added.begin(), added.end());
    return outcome(store_.save(added));
}

Outcome Tracker::start(const QString& taskID, double ago)
{
    if (!task(taskID))
        return Outcome::unknownTask;
    if (runningEntry(taskID))
        return Outcome::alreadyRunning;
    const platform::Date start = clock_.now() - seconds(std::max(0.0, ago));
    std::vector<TimeEntry> changed;
    if (settings_.singleTimer) {
        changed = runningEntries();
        for (TimeEntry& running : changed)
            running.end = std::max(running.start, start);
    }
    changed.push_back({newEntryID(), taskID, start, std::nullopt});
    return store(changed);
}

Outcome Tracker::stop(const QString& taskID, double delta)
{
    const TimeEntry* const running = runningEntry(taskID);
    if (!running)
        return task(taskID) ? Outcome::notRunning : Outcome::unknownTask;
    return end({*running}, clock_.now() + seconds(std::min(0.0, delta)));
}

Outcome Tracker::stopAll(double delta)
{
    return end(runningEntries(), clock_.now() + seconds(std::min(0.0, delta)));
}

Outcome Tracker::adjust(const QString& taskID, double delta)
{
    const TimeEntry* const running = runningEntry(taskID);
    if (!running)
        return task(taskID) ? Outcome::notRunning : Outcome::unknownTask;
    TimeEntry moved = *running;
    moved.start = delta == 0 ? endOfLastEntryBefore(moved.start)
                             : std::min(moved.start + seconds(delta), std::max(moved.start, clock_.now()));
    return store({moved});
}

Outcome Tracker::setSettings(const Settings& settings)
{
    settings_ = settings;
    return outcome(store_.save(settings_));
}

platform::Date Tracker::endOfLastEntryBefore(platform::Date start) const
{
    std::optional<platform::Date> last;
    for (const TimeEntry& entry : entries_) {
        if (entry.end && *entry.end <= start && (!last || *entry.end > *last))
            last = entry.end;
    }
    return last.value_or(start);
}

Outcome Tracker::end(std::vector<TimeEntry> running, platform::Date moment)
{
    for (TimeEntry& entry : running)
        entry.end = std::max(entry.start, moment);
    return store(running);
}

Outcome Tracker::store(const std::vector<TimeEntry>& changed)
{
    for (const TimeEntry& entry : changed) {
        const auto known = std::find_if(entries_.begin(), entries_.end(),
            [&](const TimeEntry& candidate) { return candidate.id == entry.id; });
        if (known == entries_.end())
            entries_.push_back(entry);
        else
            *known = entry;
    }
    return outcome(store_.save(changed));
}

} // namespace quor::peer
