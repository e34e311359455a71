// SPDX-License-Identifier: MIT
// How edits of calendar files are collected and written.
#include "TestCalendars.h"
#include "ToolKit/Calendar/Files/StagingArea.h"

#include <gmock/gmock.h>

using namespace quor::test;
using namespace quor::toolkit;
using namespace Qt::StringLiterals;
using Kind = EventStoreError::Kind;

namespace {

class Staging : public testing::Test {
protected:
    static ItemEdit adding(const QString& uid)
    {
        return [uid](ItemFile& file) {
            file.add(ICAL_VEVENT_COMPONENT, uid);
            return EventStoreResult();
        };
    }
    static ItemEdit removing(const QString& uid)
    {
        return [uid](ItemFile& file) {
            for (icalcomponent* each : file.components(ICAL_VEVENT_COMPONENT, uid))
                file.remove(each);
            return EventStoreResult();
        };
    }
    EventStoreResult stage(
        const char* file, ItemEdit edit, std::shared_ptr<const WriteStatus> condition = nullptr)
    {
        return staged_.stage(directory_, file, std::move(edit), std::move(condition));
    }
    bool commit(CommitWave wave) { return staged_.commit(wave, directory_, files_, failures_); }
    /// The identifiers in a file, joined.
    [[nodiscard]] QString content(const char* name) const
    {
        const auto file = directory_.read(name);
        QStringList uids;
        for (const QByteArray& line : file ? file->bytes->split('\n') : QByteArrayList()) {
            if (line.startsWith("UID:"))
                uids << QString::fromUtf8(line.sliced(4).trimmed());
        }
        return uids.join(u' ');
    }

    TestCalendars calendars_;
    CalendarDirectory directory_{calendars_.path().toUtf8(), {"local", "team"}};
    ParsedFiles files_;
    StagingArea staged_;
    std::vector<EventStoreError> failures_;
};

} // namespace

TEST_F(Staging, AnItemLeavesItsFileAfterItIsInTheOther)
{
    calendars_.write(u"old.ics"_s, TestCalendars::event("a", "DTSTART:20261102T090000Z"));
    ASSERT_FALSE(stage("new.ics", adding(u"a"_s)));
    ASSERT_FALSE(stage("old.ics", removing(u"a"_s), staged_.find("new.ics")->status()));
    EXPECT_FALSE(commit(CommitWave::removals));
    EXPECT_EQ(content("old.ics") + u'|' + content("new.ics"), u"a|"_s);
    EXPECT_TRUE(commit(CommitWave::additions));
    EXPECT_EQ(content("old.ics") + u'|' + content("new.ics"), u"a|a"_s);
    EXPECT_TRUE(commit(CommitWave::removals));
    EXPECT_EQ(content("old.ics") + u'|' + content("new.ics"), u"|a"_s);
    EXPECT_TRUE(staged_.files().empty() && failures_.empty());
}

TEST_F(Staging, AnItemThatCannotArriveStaysButOtherEditsAreWritten)
{
    calendars_.write(u"old.ics"_s, TestCalendars::event("a", "DTSTART:20261102T090000Z"));
    ASSERT_FALSE(stage("new.ics", adding(u"a"_s)));
    const auto arrival = staged_.find("new.ics")->status();
    ASSERT_FALSE(stage("old.ics", removing(u"a"_s), arrival));
    ASSERT_FALSE(stage("old.ics", adding(u"b"_s)));
    staged_.unstage("new.ics");
    EXPECT_EQ(*arrival, WriteStatus::abandoned);
    EXPECT_TRUE(staged_.hasUnfinishedMoves());
    EXPECT_TRUE(commit(CommitWave::removals));
    EXPECT_EQ(content("old.ics"), u"a b"_s);
    EXPECT_TRUE(content("new.ics").isEmpty() && failures_.empty());
}

TEST_F(Staging, AFailedEditChangesNothing)
{
    const auto failing = [](ItemFile& file) {
        file.add(ICAL_VEVENT_COMPONENT, u"half"_s);
        return EventStoreResult(EventStoreError(Kind::conflict, u"x"_s));
    };
    EXPECT_EQ(stage("a.ics", failing).value().kind(), Kind::conflict);
    EXPECT_FALSE(staged_.find("a.ics"));
    ASSERT_FALSE(stage("a.ics", adding(u"a"_s)));
    EXPECT_EQ(stage("a.ics", failing).value().kind(), Kind::conflict);
    EXPECT_TRUE(commit(CommitWave::additions));
    EXPECT_EQ(content("a.ics"), u"a"_s);
}

TEST_F(Staging, AFileIsReplacedOnlyInTheStateThatIsExpected)
{
    const QString path = calendars_.path(u"local/team/a.ics"_s);
    const QString other = calendars_.path(u"other"_s);
    FileIdentity first;
    ASSERT_FALSE(directory_.write("a.ics", "one", std::nullopt, &first));
    EXPECT_EQ(directory_.write("a.ics", "two", std::nullopt).value().kind(), Kind::conflict);
    ASSERT_TRUE(writeFile(path, "theirs, longer"));
    EXPECT_EQ(directory_.write("a.ics", "two", first).value().kind(), Kind::conflict);
    EXPECT_EQ(directory_.remove("a.ics", first).value().kind(), Kind::conflict);
    EXPECT_EQ(readFile(path), "theirs, longer");
    ASSERT_TRUE(QFile::rename(path, other) && QFile::link(other, path));
    EXPECT_FALSE(directory_.identity("a.ics") || directory_.read("a.ics"));
    EXPECT_EQ(directory_.write("a.ics", "two", first).value().kind(), Kind::conflict);
    EXPECT_EQ(readFile(other), "theirs, longer");
    EXPECT_EQ(calendars_.files(), QStringList{u"a.ics"_s});
}
