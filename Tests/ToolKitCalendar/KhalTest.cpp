// SPDX-License-Identifier: MIT
// Calendars exchanged with another calendar program.
#include "TestCalendars.h"

#include <QProcess>
#include <QStandardPaths>
#include <QTimeZone>

#include <gtest/gtest.h>

#include <ctime>

using namespace quor::test;
using namespace quor::toolkit;
using namespace Qt::StringLiterals;

namespace {

class Khal final {
public:
    Khal(const TestCalendars& calendars, const QString& zone)
        : folder_(calendars.path(u".khal"_s))
    {
        environment_.insert(u"XDG_CONFIG_HOME"_s, folder_);
        environment_.insert(u"XDG_DATA_HOME"_s, folder_);
        environment_.insert(u"XDG_CACHE_HOME"_s, folder_);
        environment_.insert(u"LC_ALL"_s, u"C.UTF-8"_s);
        environment_.insert(u"TZ"_s, zone);
        const QString config
            = u"[calendars]\n[[work]]\npath = %1\n[sqlite]\npath = %2/khal.db\n[locale]\n"
              "local_timezone = %3\ndefault_timezone = %3\ntimeformat = %H:%M\n"
              "dateformat = %Y-%m-%d\nlongdateformat = %Y-%m-%d\ndatetimeformat = %Y-%m-%d %H:%M\n"
              "longdatetimeformat = %Y-%m-%d %H:%M\n[default]\ndefault_calendar = work\n"_s;
        writeFile(folder_ + u"/config"_s,
            QString(config)
                .replace(u"%1"_s, calendars.path(u"local/team"_s))
                .replace(u"%2"_s, folder_)
                .replace(u"%3"_s, zone)
                .toUtf8());
    }

    [[nodiscard]] QString run(const QStringList& arguments) const
    {
        QProcess khal;
        khal.setProcessEnvironment(environment_);
        khal.setProcessChannelMode(QProcess::MergedChannels);
        khal.start(u"khal"_s, QStringList{u"-c"_s, folder_ + u"/config"_s} + arguments);
        return khal.waitForFinished(60'000) ? QString::fromUtf8(khal.readAll()) : u"did not end"_s;
    }

private:
    QString folder_;
    QProcessEnvironment environment_ = QProcessEnvironment::systemEnvironment();
};

} // namespace

TEST(Khal, ReadsWhatWeWriteAndWritesWhatWeRead)
{
    if (QStandardPaths::findExecutable(u"khal"_s).isEmpty())
        GTEST_SKIP() << "khal is not installed";
    for (const auto& [zone, hour] : {std::pair(u"UTC"_s, u"09"_s), std::pair(u"Europe/Berlin"_s, u"11"_s)}) {
        qputenv("TZ", zone.toUtf8());
        tzset();
        const TestCalendars calendars;
        const Khal khal(calendars, zone);
        EventStore store(calendars.options());
        const auto event = newEvent(store, u"Ours"_s, "2026-07-06T09:00", "2026-07-06T10:00");
        event->setRecurrenceRule(u"FREQ=WEEKLY;COUNT=3"_s);
        ASSERT_FALSE(store.saveEvent(event, EventSpan::thisEvent, true));
        Events all = events(store, "2026-07-01T00:00", "2026-08-01T00:00");
        ASSERT_EQ(all.size(), 3u);
        ASSERT_FALSE(store.removeEvent(all[1], EventSpan::thisEvent, true));
        all[2]->setTitle(u"Moved"_s);
        all[2]->setStartDate(utc("2026-07-21T09:00"));
        all[2]->setEndDate(utc("2026-07-21T10:00"));
        ASSERT_FALSE(store.saveEvent(all[2], EventSpan::thisEvent, true));

        const QString list = khal.run({u"list"_s, u"--format"_s, u"{start-date} {start-time} {title}"_s,
            u"--notstarted"_s, u"2026-07-01"_s, u"31d"_s});
        EXPECT_TRUE(list.contains(u"2026-07-06 %1:00 Ours"_s.arg(hour))) << list.toStdString();
        EXPECT_TRUE(list.contains(u"2026-07-21 %1:00 Moved"_s.arg(hour))) << list.toStdString();
        EXPECT_FALSE(list.contains(u"2026-07-13"_s)) << list.toStdString();

        const QString made = khal.run({u"new"_s, u"2026-11-02"_s, u"09:00"_s, u"10:30"_s, u"Theirs"_s});
        const Events theirs = events(store, "2026-11-01T00:00", "2026-11-04T00:00");
        EXPECT_EQ(
            listed(theirs), QStringList{zone == u"UTC" ? u"Theirs@11-02 09:00"_s : u"Theirs@11-02 08:00"_s})
            << made.toStdString();
    }
    qunsetenv("TZ");
    tzset();
}

TEST(Khal, ListsTheSameOccurrences)
{
    qputenv("TZ", "Europe/Berlin");
    tzset();
    const TestCalendars calendars;
    int number = 0;
    for (const char* each : {"20261103T090000\nRRULE:FREQ=WEEKLY;BYDAY=MO;COUNT=4", // not on the 3rd
             "20261103T091000\nRRULE:FREQ=MONTHLY;BYDAY=MO,WE;BYSETPOS=-1;COUNT=2",
             "20261024T023000\nRRULE:FREQ=DAILY;COUNT=3", // 2:30 occurs twice on the 25th
             "20261025T024000", "20261101T092000\nRRULE:FREQ=WEEKLY;INTERVAL=2;BYDAY=SU,MO;WKST=SU;COUNT=6",
             "20261130T093000\nRRULE:FREQ=MONTHLY;UNTIL=20270330T080000Z"}) {
        const QByteArray name = QByteArray::number(number++);
        calendars.write(QString::fromLatin1(name + ".ics"),
            TestCalendars::event(name, "SUMMARY:" + name + "\nDTSTART;TZID=Europe/Berlin:" + each));
    }
    const Khal khal(calendars, u"Europe/Berlin"_s);
    QStringList theirs = khal.run({u"list"_s, u"--day-format"_s, QString(), u"--format"_s,
                                      u"{start-date} {start-time} {title}"_s, u"2026-10-20"_s, u"200d"_s})
                             .split(u'\n', Qt::SkipEmptyParts);
    EventStore store(calendars.options());
    QStringList ours;
    for (const auto& event : events(store, "2026-10-20T00:00", "2027-05-01T00:00")) {
        const auto seconds = qint64(quor::platform::secondsSince1970(event->startDate()));
        const auto start = QDateTime::fromSecsSinceEpoch(seconds, QTimeZone("Europe/Berlin"));
        ours += start.toString(u"yyyy-MM-dd HH:mm "_s) + event->title();
    }
    theirs.sort();
    ours.sort();
    EXPECT_EQ(ours.join(u'\n').toStdString(), theirs.join(u'\n').toStdString());
    qunsetenv("TZ");
    tzset();
}
