// SPDX-License-Identifier: MIT
#include "Peer/Model/MenuRows.h"

#include "Peer/Model/TextSearch.h"
#include "Peer/Model/Tracker.h"

#include <QCollator>
#include <QHash>
#include <QLocale>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace quor::peer {

namespace {

using Entry = MenuEntry::Entry;

constexpr std::size_t recentLimit = 5;

MenuEntry titleRow(const QString& text)
{
    Entry row;
    row.label = text;
    row.isTitle = true;
    return {row};
}

MenuEntry taskRow(const Task& task, const QString& iconName, const Entry::Action& action)
{
    Entry row;
    row.label = task.name;
    row.iconName = iconName;
    row.color = task.color;
    row.action = action;
    return {row};
}

MenuEntry commandRow(const QString& text, const Entry::Action& action)
{
    Entry row;
    row.label = text;
    row.action = action;
    return {row};
}

void appendRunning(
    std::vector<MenuEntry>& rows, const Tracker& tracker, const TextSearch& search, const QString& title)
{
    std::vector<MenuEntry> section;
    for (const TimeEntry& entry : tracker.runningEntries()) {
        const Task* const task = tracker.task(entry.taskID);
        if (!task || !search.isFoundIn(task->name))
            continue;
        section.push_back(taskRow(*task, u"stop"_s, {Entry::Action::Stop{task->id}}));
        section.push_back({MenuEntry::AdjustStart{task->id, platform::secondsSince1970(entry.start)}});
        section.push_back({MenuEntry::StopPast{task->id}});
    }
    if (section.empty())
        return;
    rows.push_back(titleRow(title));
    rows.insert(rows.end(), section.begin(), section.end());
    rows.push_back({MenuEntry::Separator{}});
}

void appendStartable(
    std::vector<MenuEntry>& rows, const std::vector<const Task*>& tasks, const QString& title)
{
    if (tasks.empty())
        return;
    rows.push_back(titleRow(title));
    for (const Task* const task : tasks)
        rows.push_back(taskRow(*task, u"play"_s, {Entry::Action::Start{task->id}}));
    rows.push_back({MenuEntry::Separator{}});
}

std::vector<const Task*> idleTasks(const Tracker& tracker, const TextSearch& search)
{
    QSet<QString> running;
    for (const TimeEntry& entry : tracker.runningEntries())
        running.insert(entry.taskID);
    std::vector<const Task*> tasks;
    for (const Task& task : tracker.tasks()) {
        if (!running.contains(task.id) && search.isFoundIn(task.name))
            tasks.push_back(&task);
    }
    // The C locale compares code points.
    QCollator collator(QLocale().language() == QLocale::C ? QLocale(QLocale::English) : QLocale());
    collator.setNumericMode(true);
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    std::stable_sort(tasks.begin(), tasks.end(),
        [&](const Task* left, const Task* right) { return collator.compare(left->name, right->name) < 0; });
    return tasks;
}

std::vector<const Task*> recentTasks(const Tracker& tracker, const std::vector<const Task*>& idle)
{
    QHash<QString, platform::Date> lastUse;
    for (const TimeEntry& entry : tracker.entries()) {
        platform::Date& last = lastUse[entry.taskID];
        last = std::max(last, entry.end.value_or(entry.start));
    }
    std::vector<const Task*> recent;
    std::copy_if(idle.begin(), idle.end(), std::back_inserter(recent),
        [&](const Task* task) { return lastUse.contains(task->id); });
    std::stable_sort(recent.begin(), recent.end(), [&](const Task* left, const Task* right) {
        return lastUse.value(left->id) > lastUse.value(right->id);
    });
    recent.resize(std::min(recent.size(), recentLimit));
    return recent;
}

} // namespace

std::vector<MenuEntry> menuRows(const Tracker& tracker, const QString& searchTerm, const MenuTexts& texts)
{
    const TextSearch search(searchTerm);
    std::vector<MenuEntry> rows{{MenuEntry::Search{}}};
    appendRunning(rows, tracker, search, texts.running);
    const auto idle = idleTasks(tracker, search);
    if (search.isEmpty())
        appendStartable(rows, recentTasks(tracker, idle), texts.recent);
    appendStartable(rows, idle, texts.allTasks);
    if (rows.size() == 1 && !search.isEmpty()) {
        rows.push_back(titleRow(texts.noMatch));
        rows.push_back({MenuEntry::Separator{}});
    }
    rows.push_back(commandRow(texts.showApplication, {Entry::Action::Show{}}));
    rows.push_back(commandRow(texts.quitApplication, {Entry::Action::Quit{}}));
    return rows;
}

} // namespace quor::peer
