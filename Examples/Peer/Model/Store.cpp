// SPDX-License-Identifier: MIT
#include "Peer/Model/Store.h"

#include "Peer/Model/RecordJSON.h"

#include <algorithm>
#include <limits>

using namespace Qt::StringLiterals;

namespace quor::peer {

namespace {

constexpr auto everything = std::numeric_limits<qint64>::max();

std::optional<QString> subfolder(const std::optional<QString>& folder, QLatin1StringView name)
{
    return folder ? std::optional(*folder + u'/' + name) : std::nullopt;
}

template <typename Record>
std::vector<Record> records(const std::vector<toolkit::ListEntry<QJsonValue>>& stored,
    std::optional<Record> (*fromJSON)(const QString& id, const QJsonObject& object))
{
    std::vector<Record> result;
    for (const auto& [id, value] : stored) {
        if (auto record = fromJSON(id, value.toObject()))
            result.push_back(std::move(*record));
    }
    return result;
}

} // namespace

Store::Store(const std::optional<QString>& folder)
    : tasks_(subfolder(folder, "Tasks"_L1))
    , entries_(subfolder(folder, "TimeEntries"_L1))
    , settings_(subfolder(folder, "Settings"_L1))
{
}

std::vector<Task> Store::tasks() const
{
    return records(tasks_.list.entries(everything), &taskFromJSON);
}

std::vector<TimeEntry> Store::entries() const
{
    return records(entries_.list.entries(everything), &entryFromJSON);
}

Settings Store::settings() const
{
    Settings settings;
    for (const SettingField& field : settingFields()) {
        if (const auto value = settings_.list.value(field.key))
            assignJSON(settings, field, *value);
    }
    return settings;
}

bool Store::save(const std::vector<Task>& tasks)
{
    Records changed;
    for (const Task& task : tasks)
        changed.push_back({task.id, toJSON(task)});
    return tasks_.save(changed);
}

bool Store::save(const std::vector<TimeEntry>& entries)
{
    Records changed;
    for (const TimeEntry& entry : entries)
        changed.push_back({entry.id, toJSON(entry)});
    return entries_.save(changed);
}

bool Store::save(const Settings& settings)
{
    Records changed;
    for (const SettingField& field : settingFields())
        changed.push_back({field.key, toJSON(settings, field)});
    return settings_.save(changed);
}

Store::RecordList::RecordList(const std::optional<QString>& listFolder)
    : folder(listFolder)
    , list(listFolder)
{
}

bool Store::RecordList::save(const Records& records)
{
    for (const auto& [key, value] : records)
        list.set(value, key);
    list.flush();
    (void)list.isEmpty(); // waits for the flush
    // A list does not report what it could not write, so the files are read again.
    const List onDisk(folder);
    const List& written = folder ? onDisk : list;
    return std::all_of(records.begin(), records.end(),
        [&](const List::Entry& record) { return written.value(record.key) == record.value; });
}

} // namespace quor::peer
