// SPDX-License-Identifier: MIT
#include "TestCalendars.h"

#include <gtest/gtest.h>

#include <ctime>

using namespace quor::test;
using namespace quor::toolkit;
using namespace Qt::StringLiterals;

namespace {

class Recurrence : public testing::Test {
protected:
    Recurrence()
    {
        qputenv("TZ", "Europe/Berlin");
        tzset();
    }
    ~Recurrence() override
    {
        qunsetenv("TZ");
        tzset();
    }

    QStringList shown(const char* from, const char* to) { return listed(events(store_, from, to)); }
    QStringList shownElsewhere(const char* from, const char* to)
    {
        EventStore other(calendars_.options());
        return listed(events(other, from, to));
    }

    TestCalendars calendars_;
    EventStore store_{calendars_.options()};
};

} // namespace

TEST_F(Recurrence, RulesAndZones)
{
    constexpr auto zone = "BEGIN:VTIMEZONE\nTZID:Office\nBEGIN:STANDARD\nDTSTART:19700101T000000\n"
                          "TZOFFSETFROM:+0000\nTZOFFSETTO:-0330\nEND:STANDARD\nEND:VTIMEZONE\n"
                          "BEGIN:VTIMEZONE\nTZID:Plant\nBEGIN:STANDARD\nDTSTART:16010101T030000\n"
                          "RRULE:FREQ=YEARLY;BYDAY=1SU;BYMONTH=4\nTZOFFSETFROM:+1100\nTZOFFSETTO:+1000\n"
                          "END:STANDARD\nBEGIN:DAYLIGHT\nDTSTART:16010101T020000\n"
                          "RRULE:FREQ=YEARLY;BYDAY=1SU;BYMONTH=10\nTZOFFSETFROM:+1000\nTZOFFSETTO:+1100\n"
                          "END:DAYLIGHT\nEND:VTIMEZONE\n";
    const struct {
        const char* lines;
        const char* from;
        const char* to;
        QStringList expected;
    } cases[] = {
        {"DTSTART;TZID=Europe/Berlin:20261024T090000\nRRULE:FREQ=DAILY;COUNT=3", "2026-10-01T00:00",
            "2026-11-01T00:00", {u"A@10-24 07:00"_s, u"A@10-25 08:00"_s, u"A@10-26 08:00"_s}},
        {"DTSTART;TZID=America/New_York:20250101T090000\nRRULE:FREQ=WEEKLY;BYDAY=MO\nEXDATE;TZID=America/"
         "New_York:"
         "20261109T090000",
            "2026-11-02T00:00", "2026-11-17T00:00", {u"A@11-02 14:00"_s, u"A@11-16 14:00"_s}},
        {"DTSTART:20261102T090000\nRRULE:FREQ=DAILY;UNTIL=20261103T080000Z", "2026-11-01T00:00",
            "2026-12-01T00:00", {u"A@11-02 08:00"_s, u"A@11-03 08:00"_s}},
        {"DTSTART;VALUE=DATE:20261102\nDTEND;VALUE=DATE:20261104\nRDATE;VALUE=DATE:20261110,20261112",
            "2026-11-03T12:00", "2026-11-11T00:00", {u"A@11-01 23:00"_s, u"A@11-09 23:00"_s}},
        {"DTSTART;TZID=Office:20261102T090000", "2026-11-02T12:30", "2026-11-02T12:31", {u"A@11-02 12:30"_s}},
        {"DTSTART;TZID=Plant:20261003T090000\nRRULE:FREQ=DAILY;COUNT=3\nRDATE;TZID=Plant:20261231T090000,"
         "20270101T090000,20270403T090000,20270404T090000",
            "2026-10-01T00:00", "2027-05-01T00:00",
            {u"A@10-02 23:00"_s, u"A@10-03 22:00"_s, u"A@10-04 22:00"_s, u"A@12-30 22:00"_s,
                u"A@12-31 22:00"_s, u"A@04-02 22:00"_s, u"A@04-03 23:00"_s}},
        {"DTSTART;TZID=/vendor/1/Europe/Berlin:20260702T090000\nDURATION:PT2H", "2026-07-02T08:59",
            "2026-07-02T09:00", {u"A@07-02 07:00"_s}},
        {"DTSTART;TZID=US/Eastern:20260702T090000", "2026-07-02T00:00", "2026-07-03T00:00",
            {u"A@07-02 13:00"_s}},
        {"DTSTART;TZID=Nowhere:20261102T090000", "2026-11-02T00:00", "2026-11-03T00:00",
            {u"A@11-02 08:00"_s}},
        // Rules without any match, and impossible dates.
        {"DTSTART:20000101T090000Z\nRRULE:FREQ=SECONDLY;BYMONTH=2;BYMONTHDAY=30", "2026-01-01T00:00",
            "2026-02-01T00:00", {}},
        {"DTSTART:20000101T090000Z\nRRULE:FREQ=DAILY;BYMONTH=2;BYMONTHDAY=30", "2026-01-01T00:00",
            "2026-02-01T00:00", {}},
        {"DTSTART:20261102T090000Z\nDTEND:20261101T090000Z", "2026-11-02T00:00", "2026-11-03T00:00",
            {u"A@11-02 09:00"_s}},
        {"DTSTART:20260230T090000Z", "2026-02-01T00:00", "2026-04-01T00:00", {}},
    };
    for (const auto& each : cases) {
        calendars_.write(
            u"a.ics"_s, QByteArray(zone) + TestCalendars::event("a", QByteArray("SUMMARY:A\n") + each.lines));
        EXPECT_EQ(shown(each.from, each.to), each.expected) << each.lines;
    }
    calendars_.write(u"a.ics"_s, TestCalendars::event("a", "DTSTART:20000101T090000Z\nRRULE:FREQ=SECONDLY"));
    EXPECT_EQ(events(store_, "2026-01-01T00:00", "2027-01-01T00:00").size(), 10'000u);
}

TEST_F(Recurrence, OneOfASeriesIsMovedAndRemoved)
{
    const auto event = newEvent(store_, u"A"_s, "2026-11-02T09:00", "2026-11-02T10:00");
    event->setRecurrenceRule(u"FREQ=DAILY;COUNT=4"_s);
    ASSERT_FALSE(store_.saveEvent(event, EventSpan::thisEvent, true));
    EXPECT_TRUE(event->isRecurring());
    Events all = events(store_, "2026-11-01T00:00", "2026-12-01T00:00");
    ASSERT_EQ(all.size(), 4u);
    all[1]->setStartDate(utc("2026-11-20T09:00"));
    all[1]->setEndDate(utc("2026-11-20T10:00"));
    all[1]->setTitle(u"B"_s);
    ASSERT_FALSE(store_.saveEvent(all[1], EventSpan::thisEvent, false));
    ASSERT_FALSE(store_.removeEvent(all[2], EventSpan::thisEvent, true));
    const QStringList expected{u"A@11-02 09:00"_s, u"A@11-05 09:00"_s, u"B@11-20 09:00"_s};
    EXPECT_EQ(shown("2026-11-01T00:00", "2026-12-01T00:00"), expected);
    EXPECT_EQ(shownElsewhere("2026-11-01T00:00", "2026-12-01T00:00"), expected);

    // The moved occurrence is changed again, then removed.
    all = events(store_, "2026-11-20T00:00", "2026-11-21T00:00");
    EXPECT_EQ(all.at(0)->occurrenceDate(), utc("2026-11-03T09:00"));
    all[0]->setTitle(u"C"_s);
    ASSERT_FALSE(store_.saveEvent(all[0], EventSpan::thisEvent, true));
    EXPECT_EQ(shownElsewhere("2026-11-20T00:00", "2026-11-21T00:00"), QStringList{u"C@11-20 09:00"_s});
    ASSERT_FALSE(store_.removeEvent(all[0], EventSpan::thisEvent, true));
    EXPECT_EQ(
        shownElsewhere("2026-11-01T00:00", "2026-12-01T00:00"), (QStringList{expected[0], expected[1]}));
}

TEST_F(Recurrence, FutureEventsBecomeASeriesOfTheirOwn)
{
    calendars_.write(u"s.ics"_s,
        TestCalendars::event("s",
            "SUMMARY:A\nDTSTART;TZID=Europe/Berlin:20261020T090000\nDTEND;TZID=Europe/Berlin:"
            "20261020T100000\nRRULE:FREQ=DAILY;COUNT=10\nEXDATE;TZID=Europe/Berlin:20261027T090000"));
    Events all = events(store_, "2026-10-01T00:00", "2026-12-01T00:00");
    ASSERT_EQ(all.size(), 9u);
    all[5]->setTitle(u"B"_s);
    all[5]->setStartDate(utc("2026-10-25T09:00"));
    all[5]->setEndDate(utc("2026-10-25T10:00"));
    ASSERT_FALSE(store_.saveEvent(all[5], EventSpan::futureEvents, true));
    EXPECT_EQ(calendars_.files().size(), 2);
    EXPECT_EQ(shownElsewhere("2026-10-23T00:00", "2026-12-01T00:00"),
        (QStringList{u"A@10-23 07:00"_s, u"A@10-24 07:00"_s, u"B@10-25 09:00"_s, u"B@10-26 09:00"_s,
            u"B@10-28 09:00"_s, u"B@10-29 09:00"_s}));
    // From its first occurrence on: the whole series, with the removed occurrences.
    ASSERT_TRUE(all[5]->isRecurring());
    all[5]->setStartDate(utc("2026-10-25T10:00"));
    all[5]->setEndDate(utc("2026-10-25T10:30"));
    ASSERT_FALSE(store_.saveEvent(all[5], EventSpan::futureEvents, true));
    EXPECT_EQ(shownElsewhere("2026-10-25T00:00", "2026-12-01T00:00"),
        (QStringList{u"B@10-25 10:00"_s, u"B@10-26 10:00"_s, u"B@10-28 10:00"_s, u"B@10-29 10:00"_s}));
    all = events(store_, "2026-10-21T00:00", "2026-10-22T00:00");
    ASSERT_FALSE(store_.removeEvent(all.at(0), EventSpan::futureEvents, true));
    EXPECT_EQ(shownElsewhere("2026-10-01T00:00", "2026-10-25T00:00"), QStringList{u"A@10-20 07:00"_s});
}

TEST_F(Recurrence, AStartOutsideOfTheRuleIsNoOccurrence)
{
    const auto event = newEvent(store_, u"A"_s, "2026-11-03T09:00", "2026-11-03T10:00"); // a Tuesday
    event->setRecurrenceRule(u"FREQ=WEEKLY;BYDAY=MO;COUNT=3"_s);
    ASSERT_FALSE(store_.saveEvent(event, EventSpan::thisEvent, true));
    EXPECT_EQ(listed({event}), QStringList{u"A@11-09 09:00"_s});
    const Events all = events(store_, "2026-11-01T00:00", "2026-12-01T00:00");
    EXPECT_EQ(listed(all), (QStringList{u"A@11-09 09:00"_s, u"A@11-16 09:00"_s, u"A@11-23 09:00"_s}));
    ASSERT_FALSE(store_.removeEvent(all[0], EventSpan::futureEvents, true));
    EXPECT_TRUE(calendars_.files().isEmpty()) << "a series without any occurrence could not be removed";
}

TEST_F(Recurrence, WholeDaysAndZonesAreWrittenPlainly)
{
    const auto event = newEvent(store_, u"A"_s, "2026-10-23T22:00", "2026-10-25T23:00");
    event->setAllDay(true);
    ASSERT_FALSE(store_.saveEvent(event, EventSpan::thisEvent, true));
    const QString file = event->calendarItemIdentifier() + u".ics"_s;
    EXPECT_TRUE(
        calendars_.read(file).contains("DTSTART;VALUE=DATE:20261024\r\nDTEND;VALUE=DATE:20261026\r\n"))
        << calendars_.read(file).constData();
    event->setAllDay(false);
    for (const QByteArray zone : {"America/New_York", "US/Eastern"}) {
        event->setTimeZone(QString::fromUtf8(zone));
        ASSERT_FALSE(store_.saveEvent(event, EventSpan::thisEvent, true));
        const QByteArray text = calendars_.read(file);
        EXPECT_TRUE(text.contains("DTSTART;TZID=" + zone + ":20261023T180000")) << text.constData();
        EXPECT_TRUE(text.contains("\nTZID:" + zone + "\r\n")) << text.constData();
        EXPECT_EQ(shownElsewhere("2026-10-23T22:00", "2026-10-23T22:01"), QStringList{u"A@10-23 22:00"_s});
    }
}

TEST_F(Recurrence, NewEventsAreInTheUsersZone)
{
    for (const auto& [variable, name] : {std::pair(":Asia/Kabul", u"Asia/Kabul"_s),
             std::pair("/usr/share/zoneinfo/US/Eastern", u"US/Eastern"_s), std::pair("Etc/UTC", u"UTC"_s),
             std::pair("CET-1CEST,M3.5.0,M10.5.0/3", QString())}) {
        qputenv("TZ", variable);
        EXPECT_EQ(store_.newEvent()->timeZone(), name) << variable;
    }
}
