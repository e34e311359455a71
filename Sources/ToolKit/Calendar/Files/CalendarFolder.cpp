// SPDX-License-Identifier: MIT
#include "ToolKit/Calendar/Files/CalendarFolder.h"

#include "ToolKit/Calendar/Items/RecurrenceExpansion.h"
#include "ToolKit/Logging/Logger.h"

#include <QCryptographicHash>

#include <algorithm>
#include <chrono>

namespace quor::toolkit {

namespace {

constexpr QByteArrayView itemSuffix = ".ics";
constexpr QByteArrayView titleFile = "displayname";
constexpr QByteArrayView colorFile = "color";
constexpr qint64 largestSmallFile = 4096;
constexpr std::chrono::hours longest{24 * 32}; // of what is found by its start

/// "#RRGGBB"; some programs add an opacity behind it.
QColor colorOf(const QByteArray& text)
{
    return text.startsWith('#') && text.size() >= 7 ? QColor(QString::fromLatin1(text.first(7))) : QColor();
}

bool isPlain(char byte)
{
    return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || (byte >= '0' && byte <= '9')
        || byte == '_' || byte == '-' || byte == '.' || byte == '@';
}

QByteArray smallFile(const CalendarDirectory& directory, QByteArrayView name)
{
    const auto content = directory.read(name.toByteArray(), largestSmallFile);
    return content && content->bytes ? content->bytes->trimmed() : QByteArray();
}

} // namespace

CalendarFolder::CalendarFolder(QByteArray root, CalendarPath path)
    : root_(std::move(root))
    , path_(std::move(path))
{
}

void CalendarFolder::invalidate(const std::set<QByteArray>& names)
{
    staleNames_.insert(names.begin(), names.end());
}

void CalendarFolder::read(const CalendarDirectory& directory, const QByteArray& name)
{
    const auto content = directory.read(name);
    isIndexed_ = false;
    if (!content) {
        files_.erase(name);
        return;
    }
    Entry& entry = files_[name];
    entry = {content->identity, nullptr};
    const auto file = content->bytes ? ItemFile::parse(*content->bytes) : std::nullopt;
    if (file) {
        entry.records = std::make_shared<FileRecords>(file->records());
        return;
    }
    const QString path = QString::fromUtf8(path_.identifier() + '/' + name);
    Logger::log(QStringLiteral("Skipped a calendar file that %1: %2")
                    .arg(content->identity.size > largestItemFile ? QStringLiteral("is too large")
                            : content->bytes                      ? QStringLiteral("is broken")
                                                                  : QStringLiteral("cannot be read"),
                        path),
        true);
}

void CalendarFolder::refresh()
{
    if (!isStale_ && staleNames_.empty())
        return;
    const CalendarDirectory directory(root_, path_);
    title_ = QString::fromUtf8(smallFile(directory, titleFile));
    color_ = colorOf(smallFile(directory, colorFile));
    if (isStale_) {
        // What is not there any more, and what has another identity, shows by itself.
        std::set<QByteArray> names;
        for (const QByteArray& name : directory.names()) {
            if (name.endsWith(itemSuffix))
                names.insert(name);
        }
        std::erase_if(files_, [&](const auto& each) { return !names.contains(each.first); });
        isIndexed_ = false;
        for (const QByteArray& name : names) {
            const auto known = files_.find(name);
            if (known == files_.end() || directory.identity(name) != known->second.identity)
                staleNames_.insert(name);
        }
    }
    for (const QByteArray& name : staleNames_) {
        if (name.endsWith(itemSuffix))
            read(directory, name);
    }
    isStale_ = false;
    staleNames_.clear();
}

template <class Visit>
void CalendarFolder::visitFiles(Visit visit) const
{
    for (const auto& [name, entry] : files_) {
        if (entry.records && !staged_.contains(name))
            visit(name, *entry.records);
    }
    for (const auto& [name, staged] : staged_) {
        if (staged.records)
            visit(name, *staged.records);
    }
}

void CalendarFolder::indexFile(const QByteArray& name, const FileRecords& records)
{
    for (const EventRecord& record : records.events) {
        const Timed timed{record.fields.startDate, record.fields.endDate, &name, &record};
        if (record.recurrence)
            series_.push_back(timed);
        else
            (timed.end - timed.start > longest ? long_ : short_).push_back(timed);
    }
    holdsReminders_ = holdsReminders_ || !records.reminders.empty();
}

void CalendarFolder::index()
{
    refresh();
    if (isIndexed_)
        return;
    short_.clear();
    long_.clear();
    series_.clear();
    holdsReminders_ = false;
    visitFiles([&](const QByteArray& name, const FileRecords& records) { indexFile(name, records); });
    std::ranges::stable_sort(short_, {}, &Timed::start);
    isIndexed_ = true;
}

std::shared_ptr<EventCalendar> CalendarFolder::calendar(const EventSource& source)
{
    index();
    auto calendar = std::make_shared<EventCalendar>();
    const bool holdsEvents = !short_.empty() || !long_.empty() || !series_.empty();
    calendar->fields_ = {QString::fromUtf8(path_.identifier()),
        title_.isEmpty() ? QString::fromUtf8(path_.calendar) : title_, color_, source,
        CalendarDirectory(root_, path_).isWritable(), holdsEvents || !holdsReminders_,
        holdsReminders_ || !holdsEvents};
    calendar->saved_ = calendar->fields_;
    return calendar;
}

void CalendarFolder::visitEvents(Date start, Date end, const EventVisit& visit)
{
    index();
    const auto visitTimed = [&](const Timed& each) {
        if (overlaps(each.start, each.end, start, end))
            visit(*each.file, *each.record, each.record->occurrence, each.record->fields);
    };
    const auto first = std::ranges::lower_bound(short_, start - longest, {}, &Timed::start);
    for (auto each = first; each != short_.end() && each->start < end; ++each)
        visitTimed(*each);
    for (const Timed& each : long_)
        visitTimed(each);
    for (const Timed& each : series_) {
        expand(*each.record, start, end, [&](Date occurrence, const EventFields& fields) {
            visit(*each.file, *each.record, occurrence, fields);
        });
    }
}

void CalendarFolder::visitReminders(
    const std::function<void(const QByteArray& file, const ReminderRecord&)>& visit)
{
    refresh();
    visitFiles([&](const QByteArray& name, const FileRecords& records) {
        for (const ReminderRecord& record : records.reminders)
            visit(name, record);
    });
}

const FileRecords* CalendarFolder::records(const QByteArray& file)
{
    refresh();
    if (const auto staged = staged_.find(file); staged != staged_.end())
        return staged->second.records.get();
    const auto entry = files_.find(file);
    return entry == files_.end() ? nullptr : entry->second.records.get();
}

QByteArray CalendarFolder::fileOf(const QString& uid, const QByteArray& guess)
{
    const auto holds = [&](const FileRecords& records) {
        return std::ranges::any_of(records.events, [&](const auto& each) { return each.uid == uid; })
            || std::ranges::any_of(records.reminders, [&](const auto& each) { return each.uid == uid; });
    };
    if (const FileRecords* const known = records(guess); known && holds(*known))
        return guess;
    QByteArray found;
    visitFiles([&](const QByteArray& name, const FileRecords& records) {
        if (found.isEmpty() && holds(records))
            found = name;
    });
    return found;
}

QByteArray CalendarFolder::newFile(const QString& uid)
{
    const QByteArray id = uid.toUtf8();
    const bool isName
        = !id.isEmpty() && id.size() <= 100 && !id.startsWith('.') && std::ranges::all_of(id, isPlain);
    QByteArray stem = isName ? id : QCryptographicHash::hash(id, QCryptographicHash::Sha256).toHex();
    const CalendarDirectory directory(root_, path_);
    QByteArray name = stem + itemSuffix.toByteArray();
    for (int number = 2; directory.identity(name) || staged_.contains(name); ++number)
        name = stem + '-' + QByteArray::number(number) + itemSuffix.toByteArray();
    return name;
}

} // namespace quor::toolkit
