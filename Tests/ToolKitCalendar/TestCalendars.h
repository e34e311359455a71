// SPDX-License-Identifier: MIT
#pragma once

#include "Support/Files.h"
#include "ToolKit/Calendar/Stores/EventStore.h"

#include <QTemporaryDir>

#include <vector>

namespace quor::test {

/// A moment of UTC, as "2026-11-02T09:00".
inline platform::Date utc(const char* text)
{
    const auto time = QDateTime::fromString(QString::fromLatin1(text) + u'Z', Qt::ISODate);
    return platform::dateFromSeconds(double(time.toSecsSinceEpoch()));
}

/// A root folder of calendars of its own, with access granted, and a calendar in it.
class TestCalendars final {
public:
    TestCalendars() { QDir(folder_.path()).mkpath(QStringLiteral("local/team")); }

    [[nodiscard]] QString path(const QString& below = {}) const { return folder_.filePath(below); }
    [[nodiscard]] toolkit::EventStoreOptions options() const
    {
        return {folder_.path(), [](auto) { return toolkit::AuthorizationStatus::fullAccess; }};
    }
    void write(const QString& file, const QByteArray& lines) const
    {
        writeFile(path(QStringLiteral("local/team/") + file), calendar(lines));
    }
    [[nodiscard]] QByteArray read(const QString& file) const
    {
        return readFile(path(QStringLiteral("local/team/") + file));
    }
    [[nodiscard]] QStringList files() const
    {
        return QDir(path(QStringLiteral("local/team"))).entryList(QDir::Files | QDir::Hidden | QDir::System);
    }
    [[nodiscard]] static QByteArray calendar(const QByteArray& lines)
    {
        return QByteArray("BEGIN:VCALENDAR\nVERSION:2.0\nPRODID:test\n" + lines + "\nEND:VCALENDAR\n")
            .replace("\n", "\r\n");
    }
    [[nodiscard]] static QByteArray event(const QByteArray& uid, const QByteArray& lines)
    {
        return "BEGIN:VEVENT\nUID:" + uid + "\n" + lines + "\nEND:VEVENT";
    }

private:
    QTemporaryDir folder_;
};

using Events = std::vector<std::shared_ptr<toolkit::Event>>;

inline Events events(toolkit::EventStore& store, const char* from, const char* to)
{
    return store.eventsMatching(store.predicateForEvents(utc(from), utc(to)));
}

/// "title@start" of each, in UTC.
inline QStringList listed(const Events& events)
{
    QStringList lines;
    for (const auto& event : events) {
        const auto seconds = qint64(platform::secondsSince1970(event->startDate()));
        lines << event->title() + u'@'
                + QDateTime::fromSecsSinceEpoch(seconds, Qt::UTC).toString(QStringLiteral("MM-dd HH:mm"));
    }
    return lines;
}

inline std::shared_ptr<toolkit::Event> newEvent(
    toolkit::EventStore& store, const QString& title, const char* start, const char* end)
{
    auto event = store.newEvent();
    event->setTitle(title);
    event->setStartDate(utc(start));
    event->setEndDate(utc(end));
    event->setCalendar(store.calendars(toolkit::EntityType::event).at(0));
    return event;
}

} // namespace quor::test
