// SPDX-License-Identifier: MIT
#include "Platform/Preferences/UserDefaults.h"
#include "Support/TemporaryDataHome.h"
#include "Support/WaitFor.h"
#include "TestCalendars.h"
#include "ToolKit/Calendar/Stores/EventStoreChanges.h"

#include <gmock/gmock.h>

#include <atomic>
#include <thread>

using namespace quor::test;
using namespace quor::toolkit;
using namespace Qt::StringLiterals;
using Kind = EventStoreError::Kind;

TEST(EventStore, AccessIsRefusedInThePreferencesTypeByType)
{
    const TemporaryDataHome home;
    EXPECT_EQ(EventStore::authorizationStatus(EntityType::event), AuthorizationStatus::fullAccess);
    writeFile(home.path(u"calendars/local/team/a.ics"_s),
        TestCalendars::calendar(TestCalendars::event("a", "SUMMARY:A\nDTSTART:20261102T090000Z")));
    EventStore store;
    EXPECT_EQ(events(store, "2026-11-02T00:00", "2026-11-03T00:00").size(), 1u);
    const auto event = newEvent(store, u"B"_s, "2026-11-02T10:00", "2026-11-02T11:00");

    ASSERT_TRUE(quor::platform::UserDefaults::standard().setObject(true, u"calendarAccessDenied"_s));
    EXPECT_EQ(EventStore::authorizationStatus(EntityType::event), AuthorizationStatus::denied);
    EXPECT_EQ(EventStore::authorizationStatus(EntityType::reminder), AuthorizationStatus::fullAccess);
    EXPECT_TRUE(events(store, "2026-11-02T00:00", "2026-11-03T00:00").empty());
    EXPECT_EQ(store.saveEvent(event, EventSpan::thisEvent, true).value().kind(), Kind::accessDenied);
    std::atomic<int> answer = -1;
    store.requestFullAccessToEvents([&](bool granted, const auto&) { answer = granted; });
    EXPECT_TRUE(waitFor([&] { return answer == 0; }));
}

TEST(EventStore, WhatIsStagedIsReadHereAndWrittenByTheCommit)
{
    const TestCalendars calendars;
    EventStore store(calendars.options());
    EventStore other(calendars.options());
    const auto event
        = newEvent(store, u"Plan; with, \\ signs\nand \u00fc"_s, "2026-11-02T09:00", "2026-11-02T10:00");
    event->setNotes(u"line\n\nBEGIN:VEVENT"_s);
    event->setUrl(u"https://example.org/?a=1,2;b"_s);
    EXPECT_FALSE(store.saveEvent(event, EventSpan::thisEvent, false));
    EXPECT_EQ(events(store, "2026-11-02T09:30", "2026-11-02T09:31").size(), 1u);
    EXPECT_TRUE(calendars.files().isEmpty());
    EXPECT_FALSE(store.commit());
    EXPECT_EQ(calendars.files(), QStringList{event->calendarItemIdentifier() + u".ics"_s});
    const Events read = events(other, "2026-11-02T00:00", "2026-11-03T00:00");
    ASSERT_EQ(read.size(), 1u);
    EXPECT_EQ(read[0]->fields(), event->fields());

    EXPECT_FALSE(other.removeEvent(read[0], EventSpan::thisEvent, false));
    EXPECT_TRUE(events(other, "2026-11-02T00:00", "2026-11-03T00:00").empty());
    other.reset();
    EXPECT_EQ(events(other, "2026-11-02T00:00", "2026-11-03T00:00").size(), 1u);
    EXPECT_FALSE(other.removeEvent(read[0], EventSpan::thisEvent, true));
    EXPECT_TRUE(calendars.files().isEmpty());
    EXPECT_TRUE(events(store, "2026-11-02T00:00", "2026-11-03T00:00").empty());
}

TEST(EventStore, CalendarsAreMadeRenamedAndRemoved)
{
    const TestCalendars calendars;
    writeFile(calendars.path(u"remote/c/displayname"_s), "Team\n");
    writeFile(calendars.path(u"remote/c/color"_s), "#FF8000ff");
    writeFile(calendars.path(u"remote/t/t.ics"_s), TestCalendars::calendar("BEGIN:VTODO\nUID:t\nEND:VTODO"));
    QFile::link(u"/etc"_s, calendars.path(u"remote/link"_s));
    EventStore store(calendars.options());
    ASSERT_EQ(store.sources().size(), 2u);
    const auto calendar = store.newCalendar(EntityType::event);
    EXPECT_EQ(store.saveCalendar(calendar, true).value().kind(), Kind::invalid);
    calendar->setTitle(u"Home"_s);
    calendar->setSource(store.sources()[0]);
    ASSERT_FALSE(store.saveCalendar(calendar, false));
    calendar->setColor(QColor(u"#102030"_s));
    ASSERT_FALSE(store.saveCalendar(calendar, true)) << "its creation is only staged";

    QStringList seen;
    for (const auto& each : store.calendars(EntityType::event))
        seen << each->title() + each->color().name() + each->source()->title;
    EXPECT_EQ(seen, (QStringList{u"Home#102030local"_s, u"team#000000local"_s, u"Team#ff8000remote"_s}));
    EXPECT_EQ(store.calendars(EntityType::reminder).size(), 3u)
        << "the empty ones, and the list, but not the one for events";

    calendar->setTitle(u"Hut"_s);
    ASSERT_FALSE(store.saveCalendar(calendar, false));
    calendar->setTitle(u"House"_s);
    ASSERT_FALSE(store.saveCalendar(calendar, true));
    const QString folder = calendars.path(calendar->calendarIdentifier());
    EXPECT_EQ(readFile(folder + u"/displayname"_s), "House");
    ASSERT_FALSE(store.removeCalendar(calendar, true));
    EXPECT_FALSE(QDir(folder).exists());
    EXPECT_EQ(store.removeCalendar(calendar, true).value().kind(), Kind::notFound);
}

TEST(EventStore, RemindersAreFoundByTheirDueDates)
{
    const TestCalendars calendars;
    const auto todo = [&](const char* uid, const QByteArray& lines) {
        calendars.write(QString::fromLatin1(uid) + u".ics"_s,
            "BEGIN:VTODO\nUID:" + QByteArray(uid) + "\nSUMMARY:" + uid + "\n" + lines
                + "X-OWN:kept\nEND:VTODO");
    };
    todo("open", "");
    todo("due", "DUE:20261102T090000Z\n");
    todo("started", "DTSTART:20261102T080000Z\nDURATION:PT1H\n");
    todo("done", "DUE:20261102T090000Z\nCOMPLETED:20261101T000000Z\n");
    todo("cancelled", "DUE:20261102T090000Z\nSTATUS:CANCELLED\n");
    EventStore store(calendars.options());
    std::vector<std::shared_ptr<Reminder>> found;
    const auto fetch = [&](std::optional<Date> from, std::optional<Date> to) {
        std::atomic<bool> isDone = false;
        store.fetchReminders(store.predicateForIncompleteReminders(from, to), [&](auto reminders) {
            found = reminders.value();
            isDone = true;
        });
        EXPECT_TRUE(waitFor([&] { return isDone.load(); }));
        QStringList titles;
        for (const auto& each : found)
            titles << each->title();
        titles.sort();
        return titles;
    };
    EXPECT_EQ(fetch({}, {}), (QStringList{u"due"_s, u"open"_s, u"started"_s}));
    EXPECT_EQ(fetch(utc("2026-11-02T09:00"), {}), (QStringList{u"due"_s, u"started"_s}));
    EXPECT_EQ(fetch({}, utc("2026-11-02T09:00")), QStringList());
    fetch({}, utc("2026-11-03T00:00"));
    ASSERT_EQ(found.size(), 2u);
    for (const auto& each : found) {
        each->setCompleted(true);
        EXPECT_FALSE(store.saveReminder(each, true));
    }
    EXPECT_EQ(fetch({}, {}), QStringList{u"open"_s});
    found[0]->setDueDate(utc("2026-12-01T12:00"));
    EXPECT_FALSE(store.saveReminder(found[0], true));
    EXPECT_THAT(calendars.read(u"open.ics"_s).toStdString(),
        testing::AllOf(testing::HasSubstr("X-OWN:kept"), testing::HasSubstr("DUE")));
    EXPECT_THAT(calendars.read(u"due.ics"_s).toStdString(), testing::HasSubstr("STATUS:COMPLETED"));
    EXPECT_FALSE(store.removeReminder(found[0], true));
    EXPECT_FALSE(calendars.files().contains(u"open.ics"_s));
}

TEST(EventStore, ChangesAreNoticedWhoeverMakesThem)
{
    const TestCalendars calendars;
    EventStoreChanges changes(calendars.options());
    std::atomic<int> notices = 0;
    auto subscription = changes.subscribe([&] { ++notices; });
    const auto isNoticed = [&](const auto& change) {
        const int before = notices;
        change();
        return waitFor([&] { return notices > before; });
    };
    EventStore store(calendars.options());
    EXPECT_TRUE(isNoticed([&] {
        EXPECT_FALSE(store.saveEvent(
            newEvent(store, u"A"_s, "2026-11-02T09:00", "2026-11-02T10:00"), EventSpan::thisEvent, true));
    }));
    EXPECT_TRUE(isNoticed([&] { QDir(calendars.path()).mkpath(u"new/calendar"_s); }));
    // The new folder in the new folder is watched a moment later, when the next change is reported.
    EXPECT_TRUE(waitFor([&] {
        writeFile(calendars.path(u"new/calendar/displayname"_s), "N");
        return store.calendars(EntityType::event).at(1)->title() == u"N";
    }));
    EXPECT_TRUE(isNoticed([&] { QFile::remove(calendars.path(u"new/calendar/displayname"_s)); }));
    subscription.reset();
    const int before = notices;
    QDir(calendars.path(u"new"_s)).removeRecursively();
    EXPECT_EQ(store.sources().size(), 1u);
    EXPECT_EQ(notices, before);
}

TEST(EventStore, ServesSeveralThreadsAtOnce)
{
    const TestCalendars calendars;
    EventStore store(calendars.options());
    std::vector<std::thread> threads;
    threads.reserve(3);
    for (int thread = 0; thread < 3; ++thread) {
        threads.emplace_back([&] {
            for (int i = 0; i < 20; ++i) {
                const auto event = newEvent(store, u"A"_s, "2026-11-02T09:00", "2026-11-02T10:00");
                EXPECT_FALSE(store.saveEvent(event, EventSpan::thisEvent, i % 2 == 0));
                EXPECT_FALSE(events(store, "2026-11-02T09:00", "2026-11-02T10:00").empty());
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_FALSE(store.commit());
    EXPECT_EQ(calendars.files().size(), 60);
}
