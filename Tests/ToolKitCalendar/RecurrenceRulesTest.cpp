// SPDX-License-Identifier: MIT
// Recurrence rules, compared with what dateutil generates. The script beside this file runs it.
#include "TestCalendars.h"

#include <QProcess>

#include <gtest/gtest.h>

#include <ctime>
#include <map>

using namespace quor::test;
using namespace quor::toolkit;
using namespace Qt::StringLiterals;

namespace {

// Europe/Berlin. The clock goes forward on 2026-03-29 at 2 o'clock, and back on 2026-10-25 at 3 o'clock.
constexpr const char* comparedRules[] = {
    // A start outside of its rule is no occurrence, and does not count.
    "20261103T090000 FREQ=WEEKLY;BYDAY=MO;COUNT=4",
    "20261103T090000 FREQ=MONTHLY;BYMONTHDAY=31;COUNT=4",
    "20261103T090000 FREQ=DAILY;BYHOUR=8;COUNT=3",
    "20261103T090000 FREQ=WEEKLY;BYDAY=MO",
    // Yearly.
    "20260105T090000 FREQ=YEARLY",
    "20240229T090000 FREQ=YEARLY",
    "20240229T090000 FREQ=YEARLY;INTERVAL=3",
    "20260105T090000 FREQ=YEARLY;BYMONTH=1,3",
    "20260105T090000 FREQ=YEARLY;BYMONTHDAY=1,31",
    "20260105T090000 FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=-1",
    "20260105T090000 FREQ=YEARLY;BYDAY=TU;COUNT=100",
    "20260105T090000 FREQ=YEARLY;BYDAY=1TU,-1TH",
    "20260105T090000 FREQ=YEARLY;BYDAY=20MO",
    "20260105T090000 FREQ=YEARLY;BYDAY=53TH",
    "20260105T090000 FREQ=YEARLY;BYMONTH=3,11;BYDAY=-1SU",
    "20260105T090000 FREQ=YEARLY;BYMONTH=11;BYDAY=TU;BYMONTHDAY=2,3,4,5,6,7,8",
    "20260105T090000 FREQ=YEARLY;BYYEARDAY=1,100,-1,-366",
    "20260105T090000 FREQ=YEARLY;BYYEARDAY=60,61;BYMONTH=3",
    "20260105T090000 FREQ=YEARLY;BYWEEKNO=20;BYDAY=MO",
    "20260105T090000 FREQ=YEARLY;BYWEEKNO=1;BYDAY=MO,SU",
    "20260105T090000 FREQ=YEARLY;BYWEEKNO=53,-1;BYDAY=FR",
    "20260105T090000 FREQ=YEARLY;BYWEEKNO=1,52;BYDAY=TH;WKST=SU",
    "20260105T090000 FREQ=YEARLY;BYWEEKNO=20;BYDAY=MO,TU,WE,TH,FR;BYSETPOS=2,-1",
    "20260105T090000 FREQ=YEARLY;BYMONTH=1,6;BYDAY=MO,FR;BYSETPOS=3,-3",
    "20260105T090000 FREQ=YEARLY;BYDAY=MO;BYSETPOS=1,-1;BYHOUR=8,20",
    "20260105T090000 FREQ=YEARLY;INTERVAL=2;BYMONTH=10;BYDAY=2MO;UNTIL=20351231T000000Z",
    // Monthly.
    "20260131T090000 FREQ=MONTHLY",
    "20260131T090000 FREQ=MONTHLY;INTERVAL=5",
    "20260105T090000 FREQ=MONTHLY;BYMONTHDAY=-1,-31,15",
    "20260105T090000 FREQ=MONTHLY;BYDAY=1MO,-1FR",
    "20260105T090000 FREQ=MONTHLY;BYDAY=5SA",
    "20260105T090000 FREQ=MONTHLY;BYDAY=-5SU",
    "20260105T090000 FREQ=MONTHLY;BYDAY=FR;BYMONTHDAY=13",
    "20260105T090000 FREQ=MONTHLY;BYDAY=MO,TU,WE,TH,FR;BYSETPOS=-1",
    "20260105T090000 FREQ=MONTHLY;BYDAY=MO,TU,WE,TH,FR;BYSETPOS=1,3;COUNT=9",
    "20260105T090000 FREQ=MONTHLY;BYMONTH=2,12;BYDAY=2TU",
    "20260105T090000 FREQ=MONTHLY;INTERVAL=18;BYMONTHDAY=10,11,12",
    "20260105T090000 FREQ=MONTHLY;BYMONTHDAY=1;BYHOUR=6,18;BYMINUTE=0,30;BYSETPOS=2,-1",
    "20260301T090000 FREQ=MONTHLY;BYDAY=-1SU;UNTIL=20261130T080000Z",
    "20260301T090000 FREQ=MONTHLY;BYDAY=-1SU;UNTIL=20261129T075959Z",
    // Weekly.
    "20260107T090000 FREQ=WEEKLY",
    "20260107T090000 FREQ=WEEKLY;INTERVAL=2;BYDAY=SU,TU",
    "20260107T090000 FREQ=WEEKLY;INTERVAL=2;BYDAY=SU,TU;WKST=SU",
    "20260107T090000 FREQ=WEEKLY;INTERVAL=2;BYDAY=MO,SA;WKST=WE;COUNT=7",
    "20260107T090000 FREQ=WEEKLY;BYMONTH=1,7",
    "20260105T090000 FREQ=WEEKLY;BYDAY=MO,WE,FR;BYSETPOS=2",
    "20260107T090000 FREQ=WEEKLY;BYDAY=MO,WE,FR;BYSETPOS=-1;COUNT=5",
    "20260107T090000 FREQ=WEEKLY;INTERVAL=3;BYDAY=MO,TU,SU;BYSETPOS=1,-1;WKST=SU",
    "20260107T090000 FREQ=WEEKLY;BYHOUR=9,17;BYMINUTE=15,45;BYSETPOS=1,4",
    "20251231T090000 FREQ=WEEKLY;INTERVAL=53",
    // Daily.
    "20260105T090000 FREQ=DAILY;INTERVAL=10",
    "20260105T090000 FREQ=DAILY;BYMONTH=1;BYDAY=SA,SU",
    "20260105T090000 FREQ=DAILY;INTERVAL=2;BYMONTHDAY=-1,1",
    "20260105T090000 FREQ=DAILY;BYHOUR=9,10;BYMINUTE=0,20,40;BYSECOND=0,30;COUNT=20",
    "20260105T090000 FREQ=DAILY;BYHOUR=9,10,11;BYSETPOS=-1;COUNT=20",
    "20260105T090000 FREQ=DAILY;UNTIL=20260109T080000Z",
    "20260105 FREQ=DAILY;UNTIL=20260109",
    "20260105 FREQ=MONTHLY;BYDAY=2MO;COUNT=5",
    "20240229 FREQ=YEARLY",
    // Hourly, minutely and secondly.
    "20260105T090000 FREQ=HOURLY;INTERVAL=1000",
    "20260105T090000 FREQ=HOURLY;INTERVAL=5;BYDAY=MO;BYMONTH=2",
    "20260105T090000 FREQ=HOURLY;BYHOUR=9,10;BYMINUTE=0,30;UNTIL=20260201T000000Z",
    "20260105T090500 FREQ=HOURLY;INTERVAL=7;BYHOUR=2,9;BYMINUTE=1,2,3;BYSETPOS=-2;COUNT=20",
    "20260105T090000 FREQ=MINUTELY;INTERVAL=30000",
    "20260105T090000 FREQ=MINUTELY;INTERVAL=90;BYHOUR=9,12,15;UNTIL=20260120T000000Z",
    "20260105T090000 FREQ=MINUTELY;BYHOUR=9;BYMINUTE=0,1,2;BYSECOND=10,20;COUNT=20",
    "20260105T090000 FREQ=SECONDLY;INTERVAL=4000;COUNT=50",
    "20260105T090000 FREQ=SECONDLY;BYHOUR=9;BYMINUTE=0;BYSECOND=0;BYDAY=MO;COUNT=9",
    "20260105T090000 FREQ=SECONDLY;INTERVAL=45;BYMINUTE=3;BYSECOND=0,30;COUNT=20",
    "20260105T090000 FREQ=SECONDLY;BYMONTHDAY=6;BYHOUR=0;COUNT=20",
    // Local times that do not occur, and that occur twice.
    "20260328T023000 FREQ=DAILY;COUNT=3",
    "20260329T010000 FREQ=HOURLY;COUNT=2",
    "20261024T023000 FREQ=DAILY;COUNT=3",
    "20261025T020000 FREQ=YEARLY;BYMONTH=10;BYDAY=-1SU",
    "20261025T000000 FREQ=MINUTELY;INTERVAL=30;UNTIL=20261025T060000Z",
};

class RecurrenceRules : public testing::Test {
protected:
    RecurrenceRules()
    {
        qputenv("TZ", "Europe/Berlin");
        tzset();
    }
    ~RecurrenceRules() override
    {
        qunsetenv("TZ");
        tzset();
    }

    /// Adds an event for a line of START RULE. Its title is the line.
    void add(const QByteArray& line)
    {
        const qsizetype blank = line.indexOf(' ');
        const QByteArray start = line.first(blank);
        const QByteArray zone = start.contains('T') ? ";TZID=Europe/Berlin:" : ";VALUE=DATE:";
        lines_ += TestCalendars::event("uid " + line,
                      "SUMMARY:" + QByteArray(line).replace(";", "\\;").replace(",", "\\,") + "\nDTSTART"
                          + zone + start + "\nRRULE:" + line.sliced(blank + 1))
            + '\n';
    }
    /// The starts of each event of that title.
    std::map<QString, QStringList> found(const char* from, const char* to)
    {
        calendars_.write(u"rules.ics"_s, lines_.trimmed());
        EventStore store(calendars_.options());
        std::map<QString, QStringList> starts;
        for (const auto& event : events(store, from, to))
            starts[event->title()]
                += QString::number(qint64(quor::platform::secondsSince1970(event->startDate())));
        return starts;
    }

    TestCalendars calendars_;
    QByteArray lines_;
};

} // namespace

TEST_F(RecurrenceRules, AreExpandedAsDateutilDoes)
{
    // dateutil knows no summer time after 2037.
    constexpr const char* bounds[]
        = {"2025-12-01T00:00", "2027-03-01T00:00", "2035-01-01T00:00", "2036-01-01T00:00"};
    QProcess dateutil;
    QStringList arguments{u"Europe/Berlin"_s};
    for (const char* each : bounds)
        arguments += QString::number(qint64(quor::platform::secondsSince1970(utc(each))));
    dateutil.start(QStringLiteral(QUOR_DATEUTIL), arguments);
    for (const char* each : comparedRules) {
        add(each);
        dateutil.write(QByteArray(each) + '\n');
    }
    dateutil.closeWriteChannel();
    ASSERT_TRUE(dateutil.waitForFinished(120'000)) << dateutil.errorString().toStdString();
    const QList<QByteArray> expected = dateutil.readAllStandardOutput().trimmed().split('\n');
    ASSERT_EQ(std::size_t(expected.size()), std::size(comparedRules))
        << dateutil.readAllStandardError().constData();

    auto near = found(bounds[0], bounds[1]);
    auto far = found(bounds[2], bounds[3]);
    for (std::size_t i = 0; i < std::size(comparedRules); ++i) {
        const QString rule = QString::fromLatin1(comparedRules[i]);
        EXPECT_EQ((near[rule] + far[rule]).join(u' ').toStdString(), expected[qsizetype(i)].toStdString())
            << comparedRules[i];
    }
}

// dateutil takes every day of a week by number, leaves the days before the start out of the first week that
// it takes positions of, and requires both of a numbered and a plain weekday. It cannot read an end of
// another kind than the start, a leap second, or the rules of other calendars.
TEST_F(RecurrenceRules, FollowTheStandardWhereDateutilDoesNot)
{
    const struct {
        const char* line;
        QStringList expected; ///< in 2027, in UTC
    } cases[] = {
        {"20260107T090000 FREQ=YEARLY;BYWEEKNO=20", {u"05-19 07:00"_s}},
        {"20260107T090000 FREQ=YEARLY;BYWEEKNO=1,53", {u"01-06 08:00"_s}},
        {"20270101T090000 FREQ=MONTHLY;BYDAY=MO,1FR;BYMONTH=2",
            {u"02-01 08:00"_s, u"02-05 08:00"_s, u"02-08 08:00"_s, u"02-15 08:00"_s, u"02-22 08:00"_s}},
        {"20270106T090000 FREQ=WEEKLY;BYDAY=MO,WE,FR;BYSETPOS=2;COUNT=2",
            {u"01-06 08:00"_s, u"01-13 08:00"_s}},
        {"20270101T090000 FREQ=DAILY;UNTIL=20270102", {u"01-01 08:00"_s, u"01-02 08:00"_s}},
        {"20270101 FREQ=DAILY;UNTIL=20270101T230000Z", {u"12-31 23:00"_s, u"01-01 23:00"_s}},
        {"20270101T090000 FREQ=DAILY;BYSECOND=60;COUNT=1", {u"01-01 08:00"_s}},
        {"20270131T090000 RSCALE=GREGORIAN;FREQ=MONTHLY;SKIP=BACKWARD;COUNT=3",
            {u"01-31 08:00"_s, u"02-28 08:00"_s, u"03-31 07:00"_s}},
        {"20260115T090000 RSCALE=HEBREW;FREQ=YEARLY;BYMONTH=5L;BYMONTHDAY=8;SKIP=FORWARD",
            {u"02-15 08:00"_s}},
    };
    for (const auto& each : cases)
        add(each.line);
    auto starts = found("2026-12-31T00:00", "2027-12-31T00:00");
    for (const auto& each : cases) {
        QStringList actual;
        for (const QString& start : starts[QString::fromLatin1(each.line)])
            actual += QDateTime::fromSecsSinceEpoch(start.toLongLong(), Qt::UTC).toString(u"MM-dd HH:mm"_s);
        EXPECT_EQ(actual, each.expected) << each.line;
    }
}
