// SPDX-License-Identifier: MIT
// Files that other programs change at the same time, broken and foreign content, folders that disappear.
#include "Platform/Files/FolderLock.h"
#include "Support/TestLog.h"
#include "TestCalendars.h"

#include <gmock/gmock.h>

#include <cmath>
#include <csignal>
#include <ctime>

#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

using namespace quor::test;
using namespace quor::toolkit;
using namespace Qt::StringLiterals;
using Kind = EventStoreError::Kind;

namespace {

class Faults : public testing::Test {
protected:
    Events all() { return events(store_, "2026-11-01T00:00", "2026-12-01T00:00"); }
    void writeOne(const QByteArray& more = {}) const
    {
        calendars_.write(u"a.ics"_s,
            TestCalendars::event("a",
                "SUMMARY:A\nDTSTART:20261102T090000Z\nX-OWN;P=\"q\":kept\n" + more
                    + "BEGIN:VALARM\nACTION:DISPLAY\nTRIGGER:-PT5M\nEND:VALARM"));
    }
    void writeMany(int count) const
    {
        QByteArray lines;
        for (int i = 0; i < count; ++i)
            lines += TestCalendars::event(
                         QByteArray::number(i), "SUMMARY:-\nX-OWN:kept\nDTSTART:20261102T090000Z")
                + "\n";
        calendars_.write(u"many.ics"_s, lines.trimmed());
    }

    void setMode(mode_t mode, const QStringList& paths) const
    {
        for (const QString& path : paths)
            ASSERT_EQ(chmod(calendars_.path(path).toUtf8().constData(), mode), 0);
    }

    TestCalendars calendars_;
    EventStore store_{calendars_.options()};
};

/// Permissions do not bind root, so root is another user meanwhile.
class OrdinaryUser final {
public:
    OrdinaryUser() { EXPECT_TRUE(user_ != 0 || seteuid(65'534) == 0); }
    ~OrdinaryUser() { EXPECT_TRUE(user_ != 0 || seteuid(user_) == 0); }

private:
    const uid_t user_ = geteuid();
};

} // namespace

TEST_F(Faults, TwoProgramsThatSaveOneEventLoseNothing)
{
    writeOne();
    const Events ours = all();
    ASSERT_EQ(ours.size(), 1u);
    ours[0]->setTitle(u"Ours"_s);
    ASSERT_FALSE(store_.saveEvent(ours[0], EventSpan::thisEvent, false));
    writeOne("LOCATION:theirs\n"); // while ours is staged
    ASSERT_FALSE(store_.commit());
    const QByteArray text = calendars_.read(u"a.ics"_s);
    for (const char* part : {"SUMMARY:Ours", "LOCATION:theirs", "X-OWN;P=", "TRIGGER:-PT5M"})
        EXPECT_THAT(text.toStdString(), testing::HasSubstr(part));

    // The same field: their change stays, and our commit fails.
    ours[0]->setTitle(u"Again"_s);
    ASSERT_FALSE(store_.saveEvent(ours[0], EventSpan::thisEvent, false));
    calendars_.write(u"a.ics"_s, TestCalendars::event("a", "SUMMARY:Theirs\nDTSTART:20261102T090000Z"));
    EXPECT_EQ(store_.commit().value().kind(), Kind::conflict);
    EXPECT_EQ(listed(all()), QStringList{u"Theirs@11-02 09:00"_s});
    EXPECT_EQ(store_.removeEvent(ours[0], EventSpan::thisEvent, true).value().kind(), Kind::conflict);
    EXPECT_FALSE(store_.commit());
}

TEST_F(Faults, TwoProcessesWriteTheSameFileInTurn)
{
    writeMany(40);
    const auto edit = [&](int parity) {
        EventStore store(calendars_.options());
        bool isDone = true;
        for (const auto& event : events(store, "2026-11-01T00:00", "2026-12-01T00:00")) {
            if (event->calendarItemIdentifier().toInt() % 2 != parity)
                continue;
            event->setTitle(QString::number(parity));
            isDone = !store.saveEvent(event, EventSpan::thisEvent, true) && isDone;
        }
        return isDone;
    };
    const pid_t child = fork();
    if (child == 0)
        _exit(edit(1) ? 0 : 1);
    EXPECT_TRUE(edit(0));
    int status = -1;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    for (const auto& event : all())
        EXPECT_EQ(event->title().toInt(), event->calendarItemIdentifier().toInt() % 2);
    EXPECT_EQ(calendars_.files().size(), 1);
}

TEST_F(Faults, AStoppedWriterHoldsNobodyBackForEver)
{
    const auto event = newEvent(store_, u"A"_s, "2026-11-02T09:00", "2026-11-02T10:00");
    auto holder = quor::platform::FolderLock::acquire(calendars_.path(u"local/team"_s).toUtf8(), {});
    ASSERT_TRUE(holder);
    EXPECT_EQ(store_.saveEvent(event, EventSpan::thisEvent, true).value().kind(), Kind::failed);
    EXPECT_TRUE(calendars_.files().isEmpty());
    holder.reset();
    EXPECT_FALSE(store_.commit()) << "the event stayed staged";
    EXPECT_EQ(calendars_.files().size(), 1);
}

TEST_F(Faults, BrokenFilesAreSkippedAndNeverWritten)
{
    const QByteArray whole = TestCalendars::calendar(TestCalendars::event("x", "DTSTART:20261102T090000Z"));
    const QByteArray broken[] = {"", "garbage", whole.first(whole.size() / 2), whole + '\0' + whole,
        QByteArray(whole).replace("20261102T090000Z", "soon"), "BEGIN:VEVENT\r\nUID:x\r\nEND:VEVENT\r\n",
        QByteArray("BEGIN:VCALENDAR\r\n").repeated(10'000)};
    for (const QByteArray& bytes : broken) {
        const QString path = calendars_.path(u"local/team/x.ics"_s);
        ASSERT_TRUE(writeFile(path, bytes));
        EXPECT_TRUE(all().empty()) << bytes.left(100).constData();
        EXPECT_EQ(store_.calendars(EntityType::event).size(), 1u);
        EXPECT_EQ(readFile(path), bytes);
    }
    QFile large(calendars_.path(u"local/team/large.ics"_s));
    ASSERT_TRUE(large.open(QIODevice::WriteOnly) && large.resize(100 << 20));
    EXPECT_TRUE(all().empty());
    // Links lead nowhere, and an identifier is no path.
    QFile::link(calendars_.path(u"local/team/large.ics"_s), calendars_.path(u"local/team/link.ics"_s));
    calendars_.write(u"b.ics"_s,
        TestCalendars::event("../../../b", "SUMMARY:B\nDESCRIPTION:\nDTSTART:20261102T090000Z") + "\n"
            + TestCalendars::event(QByteArray(10'000, 'u'), "SUMMARY:U\nDTSTART:20261103T090000Z"));
    const Events read = all();
    ASSERT_EQ(read.size(), 2u);
    QDir(calendars_.path()).mkpath(u"local/zoo"_s);
    for (const auto& event : read) {
        event->setCalendar(store_.calendars(EntityType::event).at(1));
        EXPECT_FALSE(store_.saveEvent(event, EventSpan::thisEvent, true));
    }
    EXPECT_FALSE(calendars_.files().contains(u"b.ics"_s));
    EXPECT_EQ(QDir(calendars_.path(u"local/zoo"_s)).entryList(QDir::Files).size(), 2);
    EXPECT_EQ(listed(all()), (QStringList{u"B@11-02 09:00"_s, u"U@11-03 09:00"_s}));
}

TEST_F(Faults, NoFileHoldsTheOthersBack)
{
    const auto zone = [](const QByteArray& rule) {
        return "BEGIN:VTIMEZONE\nTZID:Z\nBEGIN:STANDARD\nDTSTART:16010101T000000\nRRULE:" + rule
            + "\nTZOFFSETFROM:+0100\nTZOFFSETTO:+0100\nEND:STANDARD\nEND:VTIMEZONE\n"
            + TestCalendars::event("z", "SUMMARY:Bad\nDTSTART;TZID=Z:20261102T090000");
    };
    const auto series = [](const QByteArray& rule, int count) {
        QByteArray lines;
        for (int i = 0; i < count; ++i)
            lines += TestCalendars::event(QByteArray::number(i), "DTSTART:16010101T090000Z\nRRULE:" + rule)
                + "\n";
        return lines + TestCalendars::event("s", "SUMMARY:Bad\nDTSTART:20261102T080000Z");
    };
    const auto event = [](const QByteArray& line) {
        return TestCalendars::event("e", "SUMMARY:Bad\nDTSTART:20261102T080000Z\n" + line);
    };
    const struct {
        const char* name;
        QByteArray lines;
        bool isReadable;
    } cases[] = {
        {"zone by seconds", zone("FREQ=SECONDLY"), true},
        {"zone by minutes", zone("FREQ=MINUTELY;INTERVAL=2"), true},
        {"impossible zone", zone("FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30"), true},
        {"impossible date", series("FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=30;COUNT=2", 200), true},
        {"impossible weekday", series("FREQ=MONTHLY;BYDAY=5MO;BYMONTHDAY=1", 200), true},
        {"impossible second", series("FREQ=SECONDLY;INTERVAL=2;BYSECOND=1;BYHOUR=3", 200), true},
        {"impossible Chinese month", series("RSCALE=CHINESE;FREQ=YEARLY;BYMONTH=2;BYMONTHDAY=1;BYDAY=5MO", 2),
            true},
        {"countless seconds", series("FREQ=SECONDLY", 200), true},
        {"folded attachment", event("ATTACH;VALUE=BINARY:" + ("\n " + QByteArray(74, 'x')).repeated(200'000)),
            true},
        {"long line", event("DESCRIPTION:" + QByteArray(16'000'000, 'x')), true},
        {"empty lines", event(QByteArray("LOCATION:\n").repeated(100'000).trimmed()), true},
        {"malformed lines", event(QByteArray("DTEND:x\n").repeated(100'000).trimmed()), false},
    };
    constexpr double mostSeconds
        = 30; // of the processor, with sanitizers; far below what each case once took
    calendars_.write(u"good.ics"_s, TestCalendars::event("good", "SUMMARY:Good\nDTSTART:20261102T090000Z"));
    for (const auto& each : cases) {
        calendars_.write(u"bad.ics"_s, each.lines);
        EventStore store(calendars_.options());
        const std::clock_t before = std::clock();
        bool isGoodFound = false;
        bool isBadFound = false;
        for (const auto& found : events(store, "2026-11-02T08:00", "2026-11-03T00:00")) {
            isGoodFound = isGoodFound || found->title() == u"Good";
            if (isBadFound || found->title() != u"Bad")
                continue;
            isBadFound = true;
            found->setTitle(u"Changed"_s);
            EXPECT_FALSE(store.saveEvent(found, EventSpan::thisEvent, true)) << each.name;
        }
        EXPECT_TRUE(isGoodFound) << each.name;
        EXPECT_EQ(isBadFound, each.isReadable) << each.name;
        EXPECT_LT(double(std::clock() - before) / CLOCKS_PER_SEC, mostSeconds) << each.name;
    }
}

TEST_F(Faults, WhatWasWrittenWhileNoFileCouldBeOpenedIsReadLater)
{
    writeOne();
    ASSERT_EQ(all().size(), 1u);
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    for (int left = 0; left < 4; ++left) {
        const QString calendar = u"local/%1"_s.arg(left);
        ASSERT_TRUE(QDir(calendars_.path()).mkpath(calendar));
        const QByteArray event = TestCalendars::event("b", "DTSTART:20261102T100000Z");
        ASSERT_TRUE(writeFile(calendars_.path(calendar + u"/b.ics"_s), TestCalendars::calendar(event)));
        calendars_.write(QString::number(left) + u".ics"_s, event);
        const int free = dup(0);
        close(free);
        const rlimit small{rlim_t(free + left), limit.rlim_max};
        setrlimit(RLIMIT_NOFILE, &small);
        EXPECT_LE(all().size(), std::size_t(3 + 2 * left)) << left;
        setrlimit(RLIMIT_NOFILE, &limit);
        EXPECT_EQ(all().size(), std::size_t(3 + 2 * left)) << left;
    }
}

TEST_F(Faults, ALongListOfDatesIsReadAndKept)
{
    QByteArray dates = "RDATE:20261102T090000Z";
    for (int day = 0; day < 1'000; ++day)
        dates += ',' + QDate(2027, 1, 1).addDays(day).toString(u"yyyyMMdd"_s).toLatin1() + "T090000Z";
    calendars_.write(u"a.ics"_s, TestCalendars::event("a", "DTSTART:20261102T090000Z\n" + dates));
    const auto event = all().at(0);
    event->setTitle(u"Changed"_s);
    ASSERT_FALSE(store_.saveEvent(event, EventSpan::futureEvents, true));
    EventStore again(calendars_.options());
    EXPECT_EQ(events(again, "2026-11-01T00:00", "2030-01-01T00:00").size(), 1'001u);
}

TEST_F(Faults, WhatCannotBeSavedIsAnswered)
{
    const auto event = newEvent(store_, u"A"_s, "2026-11-02T09:00", "2026-11-02T10:00");
    const auto nan = quor::platform::dateFromSeconds(std::nan(""));
    const std::function<void(Event&)> changes[] = {
        [](Event& each) { each.setStartDate(utc("2026-11-03T00:00")); },
        [&](Event& each) { each.setEndDate(nan); },
        [](Event& each) { each.setEndDate(quor::platform::dateFromSeconds(1e300)); },
        [](Event& each) { each.setTimeZone(u"Middle/Nowhere"_s); },
        [](Event& each) { each.setRecurrenceRule(u"FREQ=SOMETIMES"_s); },
    };
    for (const auto& change : changes) {
        const auto invalid = newEvent(store_, u"A"_s, "2026-11-02T09:00", "2026-11-02T10:00");
        change(*invalid);
        EXPECT_EQ(store_.saveEvent(invalid, EventSpan::thisEvent, true).value().kind(), Kind::invalid);
    }
    EXPECT_TRUE(calendars_.files().isEmpty());
    EXPECT_TRUE(store_.eventsMatching(store_.predicateForEvents(nan, nan)).empty());
    // The folder goes while the event is staged.
    ASSERT_FALSE(store_.saveEvent(event, EventSpan::thisEvent, false));
    QDir(calendars_.path(u"local"_s)).removeRecursively();
    EXPECT_EQ(store_.commit().value().kind(), Kind::notFound);
    EXPECT_TRUE(all().empty());
    EXPECT_EQ(store_.saveEvent(event, EventSpan::thisEvent, true).value().kind(), Kind::notFound);
}

TEST_F(Faults, WhatOthersWroteSurvivesAnEdit)
{
    const QByteArray foreign[] = {"CATEGORIES:a,b\\,c", "NEWER-THAN-US;VALUE=TEXT:x\\,y",
        R"(X-A;P="b:c":va\l;ue)", "ATTACH;FMTTYPE=text/html:CID:abc", "COMMENT:caf\xE9",
        "X-LONG:one\r\n  and\r\n\ttwo", "BEGIN:X-OWN\r\nX-Z:1\r\nEND:X-OWN",
        "BEGIN:PARTICIPANT\r\nUID:a\r\nSUMMARY:no\r\nEND:PARTICIPANT"};
    for (const QByteArray& each : foreign) {
        const QByteArray beside = "BEGIN:VJOURNAL\r\nUID:a\r\nEND:VJOURNAL\r\n";
        const QByteArray begin = "\xEF\xBB\xBF"
                                 "BEGIN:VCALENDAR\r\nVERSION:2.0\r\n"
            + beside;
        writeFile(calendars_.path(u"local/team/a.ics"_s),
            begin + "BEGIN:VEVENT\r\n" + each
                + "\r\nSUMMARY:A\r\nUID:a\r\nRRULE:FREQ=DAILY;RSCALE=GREGORIAN\r\n"
                + "DTSTART:20261102T090000Z\r\nEND:VEVENT\r\nEND:VCALENDAR\r\n");
        const Events read = all();
        ASSERT_EQ(read.size(), 29u) << each.constData();
        read[0]->setTitle(u"B"_s);
        ASSERT_FALSE(store_.saveEvent(read[0], EventSpan::futureEvents, true));
        // The series in two files: each has it.
        read[1]->setTitle(u"C"_s);
        ASSERT_FALSE(store_.saveEvent(all()[1], EventSpan::futureEvents, true));
        ASSERT_FALSE(store_.saveEvent(all()[4], EventSpan::futureEvents, true));
        EXPECT_EQ(all().size(), 29u);
        for (const QString& file : calendars_.files()) {
            EXPECT_THAT(calendars_.read(file).toStdString(),
                testing::HasSubstr("\r\n" + each.toStdString() + "\r\n"));
            EXPECT_EQ(calendars_.read(file).contains(beside), file == u"a.ics");
            QFile::remove(calendars_.path(u"local/team/"_s + file));
        }
    }
}

TEST_F(Faults, OneOfASeriesBesideASingleEventOfItsNameIsItself)
{
    calendars_.write(u"a.ics"_s,
        TestCalendars::event("a", "SUMMARY:Single\nDTSTART:20301102T090000Z") + "\n"
            + TestCalendars::event(
                "a", "SUMMARY:One\nRECURRENCE-ID:20261102T090000Z\nDTSTART:20261102T100000Z"));
    const auto event = all().at(0);
    event->setTitle(u"Changed"_s);
    ASSERT_FALSE(store_.saveEvent(event, EventSpan::futureEvents, true));
    EXPECT_EQ(listed({event}), QStringList{u"Changed@11-02 10:00"_s});
    EXPECT_EQ(listed(all()), QStringList{u"Changed@11-02 10:00"_s});
    ASSERT_FALSE(store_.removeEvent(event, EventSpan::futureEvents, true));
    EXPECT_THAT(calendars_.read(u"a.ics"_s).toStdString(), testing::HasSubstr("SUMMARY:Single"));
}

TEST_F(Faults, AFullDiskAndAReadOnlyFolderLeaveTheOldAndKeepTheNew)
{
    writeOne();
    const auto event = all().at(0);
    event->setTitle(QString(10'000, u'n'));
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const auto before = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{4096, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    ASSERT_FALSE(store_.saveEvent(event, EventSpan::thisEvent, false));
    EXPECT_EQ(store_.commit().value().kind(), Kind::full);
    setrlimit(RLIMIT_FSIZE, &limit);
    std::signal(SIGXFSZ, before);
    EXPECT_THAT(calendars_.read(u"a.ics"_s).toStdString(), testing::HasSubstr("SUMMARY:A"));
    EXPECT_EQ(calendars_.files(), QStringList{u"a.ics"_s});

    setMode(0777, {u""_s, u"local"_s, u"local/team/a.ics"_s});
    setMode(0555, {u"local/team"_s});
    {
        const OrdinaryUser user;
        EXPECT_EQ(store_.commit().value().kind(), Kind::readOnly);
        const auto team = store_.calendars(EntityType::event).at(0);
        EXPECT_FALSE(team->allowsContentModifications());
        // A calendar is made and removed in spite of what cannot be written, and that stays staged.
        const auto made = store_.newCalendar(EntityType::event);
        made->setSource(store_.sources().front());
        EXPECT_FALSE(store_.saveCalendar(made, true));
        EXPECT_FALSE(store_.removeCalendar(made, true));
        // What can never be written is not staged.
        team->setTitle(u"Ours"_s);
        EXPECT_EQ(store_.saveCalendar(team, false).value().kind(), Kind::readOnly);
        EXPECT_EQ(store_.removeCalendar(team, false).value().kind(), Kind::readOnly);
    }
    setMode(0444, {u"local/team/a.ics"_s});
    for (const mode_t mode : {0555U, 0777U}) {
        setMode(mode, {u"local/team"_s});
        const OrdinaryUser user;
        const auto again = all().at(0);
        EXPECT_EQ(store_.saveEvent(again, EventSpan::thisEvent, false).value().kind(), Kind::readOnly);
        EXPECT_EQ(store_.removeEvent(again, EventSpan::thisEvent, false).value().kind(), Kind::readOnly);
    }
    setMode(0755, {u"local/team"_s, u"local/team/a.ics"_s});
    EXPECT_FALSE(store_.commit());
    EXPECT_GT(calendars_.read(u"a.ics"_s).size(), 10'000);
}

TEST_F(Faults, NothingIsLostWhileNoFileCanBeOpened)
{
    writeOne();
    const auto event = all().at(0);
    event->setTitle(u"Ours"_s);
    ASSERT_FALSE(store_.saveEvent(event, EventSpan::thisEvent, false));
    const auto team = event->calendar();
    team->setTitle(u"Team"_s);
    ASSERT_FALSE(store_.saveCalendar(team, false));
    calendars_.write(u"b.ics"_s, TestCalendars::event("b", "SUMMARY:B\nDTSTART:20261103T090000Z"));
    calendars_.write(u"a.ics"_s, TestCalendars::event("a", "SUMMARY:A\nDTSTART:20261102T100000Z"));
    rlimit limit{};
    getrlimit(RLIMIT_NOFILE, &limit);
    // With two descriptors a folder can be opened, but no file written in it.
    for (const int free : {0, 1, 2}) {
        const int next = dup(0);
        close(next);
        const rlimit few{rlim_t(next + free), limit.rlim_max};
        setrlimit(RLIMIT_NOFILE, &few);
        const auto result = store_.commit();
        store_.refreshSourcesIfNecessary();
        const auto calendars = store_.calendars(EntityType::event).size();
        const auto events = all().size();
        setrlimit(RLIMIT_NOFILE, &limit);
        EXPECT_EQ(result.value().kind(), Kind::failed) << free;
        EXPECT_EQ(calendars, 1u) << free;
        EXPECT_EQ(events, free < 2 ? 1u : 2u) << free;
    }
    ASSERT_FALSE(store_.commit());
    EXPECT_EQ(listed(all()), (QStringList{u"Ours@11-02 10:00"_s, u"B@11-03 09:00"_s}));
    EXPECT_EQ(readFile(calendars_.path(u"local/team/displayname"_s)), "Team");
}

TEST_F(Faults, ItemsWithoutIdentifierAreReportedInTheLog)
{
    const TestLog log;
    for (const char* kind : {"VEVENT", "VTODO"}) {
        const QByteArray name = QByteArray(kind) + ".ics";
        calendars_.write(QString::fromLatin1(name),
            QByteArray("BEGIN:") + kind + "\nSUMMARY:-\nDTSTART:20261102T090000Z\nEND:" + kind);
        EXPECT_TRUE(all().empty());
        EXPECT_THAT(log.text().toStdString(),
            testing::HasSubstr("without UID in the calendar file local/team/" + name.toStdString()));
    }
}

TEST_F(Faults, AFailureOfAnotherChangeIsReportedByTheNextCommit)
{
    QDir(calendars_.path()).mkpath(u"local/zoo"_s);
    const auto calendars = store_.calendars(EntityType::event);
    for (const bool removes : {false, true}) {
        QDir(calendars_.path()).mkpath(u"local/team"_s);
        const auto event = newEvent(store_, u"A"_s, "2026-11-02T09:00", "2026-11-02T10:00");
        event->setCalendar(calendars.at(0));
        ASSERT_FALSE(store_.saveEvent(event, EventSpan::thisEvent, false));
        QDir(calendars_.path(u"local/team"_s)).removeRecursively();
        const auto made = store_.newCalendar(EntityType::event);
        made->setSource(store_.sources().front());
        EXPECT_FALSE(
            removes ? store_.removeCalendar(calendars.at(1), true) : store_.saveCalendar(made, true));
        EXPECT_EQ(store_.commit().value().kind(), Kind::notFound);
        EXPECT_FALSE(store_.commit());
    }
    // A calendar that cannot be written as a whole leaves no folder.
    const QStringList before = QDir(calendars_.path(u"local"_s)).entryList();
    const auto made = store_.newCalendar(EntityType::event);
    made->setSource(store_.sources().front());
    made->setTitle(QString(10'000, u'n'));
    rlimit limit{};
    getrlimit(RLIMIT_FSIZE, &limit);
    const rlimit small{4096, limit.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
    EXPECT_EQ(store_.saveCalendar(made, true).value().kind(), Kind::full);
    setrlimit(RLIMIT_FSIZE, &limit);
    EXPECT_EQ(QDir(calendars_.path(u"local"_s)).entryList(), before);
}

TEST_F(Faults, ACalendarIsForTheTypeThatItWasMadeFor)
{
    const auto source = store_.sources().front();
    const auto types = [&](EventStore& store, const QString& identifier) {
        QString letters;
        for (const auto type : {EntityType::event, EntityType::reminder}) {
            for (const auto& each : store.calendars(type))
                letters += each->calendarIdentifier() != identifier ? u""
                    : type == EntityType::event                     ? u"E"
                                                                    : u"R";
        }
        return letters;
    };
    EXPECT_EQ(types(store_, u"local/team"_s), u"ER"_s);
    for (const auto type : {EntityType::event, EntityType::reminder}) {
        const auto made = store_.newCalendar(type);
        made->setSource(source);
        ASSERT_FALSE(store_.saveCalendar(made, true));
        made->setTitle(u"Renamed"_s);
        ASSERT_FALSE(store_.saveCalendar(made, true));
        EventStore other(calendars_.options());
        EXPECT_EQ(types(other, made->calendarIdentifier()), type == EntityType::event ? u"E"_s : u"R"_s);
    }
    const struct {
        QByteArray content;
        QString types;
    } cases[] = {{"VEVENT", u"E"_s}, {"vtodo\n", u"R"_s}, {"VTODO, VJOURNAL,VEVENT", u"ER"_s},
        {"VEVENTS", u"ER"_s}, {"", u"ER"_s}, {"\xff;", u"ER"_s}, {QByteArray(5000, 'V'), u"ER"_s}};
    for (const auto& c : cases) {
        ASSERT_TRUE(writeFile(calendars_.path(u"local/team/supported-components"_s), c.content));
        EventStore other(calendars_.options());
        EXPECT_EQ(types(other, u"local/team"_s), c.types) << c.content.left(50).constData();
    }
    // What a calendar holds counts as well.
    writeFile(calendars_.path(u"local/team/supported-components"_s), "VTODO");
    writeOne();
    EventStore other(calendars_.options());
    EXPECT_EQ(types(other, u"local/team"_s), u"ER"_s);
}

TEST_F(Faults, OneOfTenThousandEventsInAFileIsSaved)
{
    writeMany(10'000);
    Events read = all();
    ASSERT_EQ(read.size(), 10'000u);
    read[5'000]->setTitle(u"Changed"_s);
    ASSERT_FALSE(store_.saveEvent(read[5'000], EventSpan::thisEvent, false));
    ASSERT_FALSE(store_.removeEvent(read[0], EventSpan::thisEvent, true));
    EXPECT_EQ(all().size(), 9'999u);
    const QByteArray text = calendars_.read(u"many.ics"_s);
    EXPECT_EQ(text.count("\r\nX-OWN:kept\r\n"), 9'999);
    EXPECT_EQ(text.count("SUMMARY:Changed"), 1);
}

TEST_F(Faults, AnEventThatCannotMoveIsNotLostAndStopsNothingElse)
{
    writeOne();
    calendars_.write(u"b.ics"_s, TestCalendars::event("b", "SUMMARY:B\nDTSTART:20261103T090000Z"));
    QDir(calendars_.path()).mkpath(u"local/zoo"_s);
    const auto calendars = store_.calendars(EntityType::event);
    const Events read = all();
    read[0]->setCalendar(calendars.at(1));
    ASSERT_FALSE(store_.saveEvent(read[0], EventSpan::thisEvent, false));
    ASSERT_FALSE(store_.removeCalendar(calendars.at(0), false));
    QDir(calendars_.path(u"local/zoo"_s)).removeRecursively();
    EXPECT_EQ(store_.commit().value().kind(), Kind::notFound);
    ASSERT_FALSE(store_.removeEvent(read[1], EventSpan::thisEvent, true));
    EXPECT_EQ(
        listed(events(store_, "2026-11-01T00:00", "2026-12-01T00:00")), QStringList{u"A@11-02 09:00"_s});
    EXPECT_EQ(calendars_.files(), QStringList{u"a.ics"_s});

    // A calendar is removed by the commit, not before, and with it what is staged in it.
    const auto calendar = store_.calendars(EntityType::event).at(0);
    writeFile(calendars_.path(u"local/team/color"_s), "#FF0000AA\n");
    calendar->setTitle(u"Team"_s);
    ASSERT_FALSE(store_.saveCalendar(calendar, true));
    EXPECT_EQ(readFile(calendars_.path(u"local/team/color"_s)), "#FF0000AA\n");
    ASSERT_FALSE(store_.removeCalendar(calendar, false));
    EXPECT_EQ(all().size(), 1u);
    ASSERT_FALSE(store_.commit());
    EXPECT_TRUE(all().empty());
    EXPECT_FALSE(QFile::exists(calendars_.path(u"local/team"_s)));
}

TEST_F(Faults, ACalendarIsMadeAsAWholeEvenIfTheProcessIsKilled)
{
    const auto make = [&](EventStore& store) {
        const auto made = store.newCalendar(EntityType::event);
        made->setTitle(u"Made"_s);
        made->setSource(store.sources().front());
        return !store.saveCalendar(made, true);
    };
    QDir(calendars_.path()).rmdir(u"local/team"_s);
    int pipes[2] = {};
    ASSERT_EQ(pipe(pipes), 0);
    for (int i = 0; i < 30; ++i) {
        const pid_t maker = fork();
        if (maker == 0) {
            EventStore store(calendars_.options());
            while (make(store) && ::write(pipes[1], "x", 1) == 1) { }
            pause();
        }
        char signal = 0;
        EXPECT_EQ(::read(pipes[0], &signal, 1), 1);
        kill(maker, SIGKILL); // while it makes the next one
        waitpid(maker, nullptr, 0);
    }
    close(pipes[0]);
    close(pipes[1]);
    EXPECT_TRUE(make(store_));
    EXPECT_TRUE(store_.calendars(EntityType::reminder).empty());
    for (const auto& each : store_.calendars(EntityType::event))
        EXPECT_EQ(each->title(), u"Made");
    EXPECT_FALSE(QFile::exists(calendars_.path(u"local/.quor-calendar.new"_s)));
}

TEST_F(Faults, FilesOfKilledWritersGoWithTheNextCommit)
{
    const QString leftover = calendars_.path(u"local/team/.quor-1z2y3x.new"_s);
    const QString foreign = calendars_.path(u"local/team/.sync"_s);
    ASSERT_TRUE(writeFile(leftover, "half a cal") && writeFile(foreign, "x"));
    const auto event = newEvent(store_, u"A"_s, "2026-11-02T09:00", "2026-11-02T10:00");
    EXPECT_TRUE(QFile::exists(leftover)) << "reads do not write";
    ASSERT_FALSE(store_.saveEvent(event, EventSpan::thisEvent, true));
    EXPECT_FALSE(QFile::exists(leftover));
    EXPECT_TRUE(QFile::remove(foreign));
    ASSERT_TRUE(writeFile(leftover, "half a cal"));
    ASSERT_FALSE(store_.removeCalendar(event->calendar(), true));
    EXPECT_TRUE(store_.calendars(EntityType::event).empty());
    EXPECT_FALSE(QFile::exists(calendars_.path(u"local/team"_s)));
}
