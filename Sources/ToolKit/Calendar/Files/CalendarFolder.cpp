// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Files/CalendarFolder.h"

#include <QCryptographicHash>

#include <algorithm>
#include <cerrno>
#include <utility>

#include <unistd.h>

namespace quor::toolkit {

namespace {

constexpr qsizetype longestPlainName = 100; // bytes; many file systems allow 255

bool isPlain(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9')
        || byte == '_' || byte == '-' || byte == '.' || byte == '@';
}

bool holdsItem(const FileRecords& records, const QString& uid)
{
    const auto isMeant = [&](const auto& each) { return each.uid == uid; };
    return std::ranges::any_of(records.events, isMeant) || std::ranges::any_of(records.reminders, isMeant);
}

} // namespace

CalendarFolder::CalendarFolder(QByteArray root, CalendarPath path)
    : root_(std::move(root))
    , path_(std::move(path))
{
}

void CalendarFolder::refresh()
{
    if (files_.isCurrent())
        return;
    const CalendarDirectory directory(root_, path_);
    if (isTemporary(directory.openError()))
        return; // what was read last stays
    properties_ = readProperties(directory);
    if (files_.update(directory, path_))
        index_.reset();
}

std::vector<NamedRecords> CalendarFolder::visibleRecords() const
{
    std::vector<NamedRecords> visible;
    for (const auto& [name, file] : files_.files()) {
        if (file.records && !staged_.find(name))
            visible.push_back({&name, &*file.records});
    }
    for (const auto& [name, file] : staged_.files())
        visible.push_back({&name, &file.records()});
    return visible;
}

const ItemIndex& CalendarFolder::index()
{
    refresh();
    if (!index_)
        index_.emplace(visibleRecords());
    return *index_;
}

std::shared_ptr<EventCalendar> CalendarFolder::calendar(const EventSource& source)
{
    const auto allows = [&](EntityType type, bool holdsType, bool holdsOther) {
        return holdsType || (properties_.types.empty() ? !holdsOther : properties_.types.contains(type));
    };
    const bool holdsEvents = index().holdsEvents();
    const bool holdsReminders = index().holdsReminders();
    auto calendar = std::make_shared<EventCalendar>();
    calendar->fields_
        = {identifier(), properties_.title.isEmpty() ? QString::fromUtf8(path_.calendar) : properties_.title,
            properties_.color, source, CalendarDirectory(root_, path_).isWritable(),
            allows(EntityType::event, holdsEvents, holdsReminders),
            allows(EntityType::reminder, holdsReminders, holdsEvents)};
    calendar->saved_ = calendar->fields_;
    return calendar;
}

void CalendarFolder::visitEvents(Date start, Date end, const EventVisit& visit)
{
    index().visitEvents(start, end, visit);
}

void CalendarFolder::visitReminders(
    const std::function<void(const QByteArray& file, const ReminderRecord&)>& visit)
{
    refresh();
    for (const NamedRecords& each : visibleRecords()) {
        for (const ReminderRecord& record : each.records->reminders)
            visit(*each.file, record);
    }
}

const FileRecords* CalendarFolder::records(const QByteArray& file)
{
    refresh();
    if (const StagedFile* const staged = staged_.find(file))
        return &staged->records();
    const auto found = files_.files().find(file);
    return found == files_.files().end() || !found->second.records ? nullptr : &*found->second.records;
}

std::optional<ItemFile> CalendarFolder::content(const QByteArray& file)
{
    if (const StagedFile* const staged = staged_.find(file))
        return staged->bytes() ? ItemFile::parse(*staged->bytes()) : std::nullopt;
    const auto content = CalendarDirectory(root_, path_).read(file);
    return content && content->bytes ? ItemFile::parse(*content->bytes) : std::nullopt;
}

QByteArray CalendarFolder::fileOf(const QString& uid, const QByteArray& lastKnown)
{
    if (const FileRecords* const known = records(lastKnown); known && holdsItem(*known, uid))
        return lastKnown;
    const auto visible = visibleRecords();
    const auto found = std::ranges::find_if(
        visible, [&](const NamedRecords& each) { return holdsItem(*each.records, uid); });
    return found == visible.end() ? QByteArray() : *found->file;
}

QByteArray CalendarFolder::newFile(const QString& uid)
{
    QByteArray stem = uid.toUtf8();
    const bool isName = !stem.isEmpty() && stem.size() <= longestPlainName && !stem.startsWith('.')
        && std::ranges::all_of(stem, isPlain);
    if (!isName)
        stem = QCryptographicHash::hash(stem, QCryptographicHash::Sha256).toHex();
    const CalendarDirectory directory(root_, path_);
    QByteArray name = stem + itemSuffix.toByteArray();
    for (int number = 2; directory.identity(name) || staged_.find(name); ++number)
        name = stem + '-' + QByteArray::number(number) + itemSuffix.toByteArray();
    return name;
}

EventStoreResult CalendarFolder::stage(
    const QByteArray& file, ItemEdit edit, std::shared_ptr<const WriteStatus> condition)
{
    index_.reset();
    return staged_.stage(CalendarDirectory(root_, path_), file, std::move(edit), std::move(condition));
}

std::shared_ptr<const WriteStatus> CalendarFolder::status(const QByteArray& file) const
{
    return staged_.files().at(file).status();
}

void CalendarFolder::unstage(const QByteArray& file)
{
    index_.reset();
    staged_.unstage(file);
}

void CalendarFolder::unstageAll()
{
    index_.reset();
    staged_.clear();
}

bool CalendarFolder::commit(CommitWave wave, std::vector<EventStoreError>& failures)
{
    if (!staged_.isAnyReady(wave))
        return false;
    index_.reset();
    const CalendarDirectory directory(root_, path_);
    auto busy = directory.isOpen() ? directory.lock(path_.below(root_)) : std::nullopt;
    if (busy) {
        failures.push_back(*std::move(busy));
        return false;
    }
    directory.removeLeftovers();
    return staged_.commit(wave, directory, files_, failures);
}

EventStoreResult CalendarFolder::removalObstacle() const
{
    return CalendarDirectory(root_, {path_.source, {}}).writeObstacle(path_.calendar);
}

EventStoreResult CalendarFolder::removeFromDisk()
{
    const CalendarDirectory directory(root_, path_);
    const QByteArray folder = path_.below(root_);
    if (auto obstacle = removalObstacle())
        return obstacle;
    if (auto failure = directory.lock(folder))
        return failure;
    directory.removeLeftovers();
    // A calendar of which only a part could be removed keeps its name.
    auto names = directory.names();
    std::partition(
        names.begin(), names.end(), [](const QByteArray& name) { return name.endsWith(itemSuffix); });
    for (const QByteArray& name : names) {
        const bool isOurs = name.endsWith(itemSuffix) || isPropertyFile(name);
        const auto identity = isOurs ? directory.identity(name) : std::nullopt;
        if (auto failure = identity ? directory.remove(name, *identity) : std::nullopt)
            return failure;
    }
    if (rmdir(folder.constData()) != 0 && errno != ENOTEMPTY && errno != EEXIST && errno != ENOENT)
        return systemError(errno, folder);
    unstageAll();
    return std::nullopt;
}

} // namespace quor::toolkit
