// SPDX-License-Identifier: MIT
#include "Peer/Model/Store.h"

#include "Peer/Model/Tracker.h"
#include "Support/Files.h"
#include "Support/TestClock.h"

#include <QTemporaryDir>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace quor::peer;

namespace {

/// A tracker that has loaded what is in a folder, as after a start of the program.
struct Session {
    explicit Session(const QTemporaryDir& folder)
        : store(folder.path())
    {
        tracker.load();
    }
    quor::test::TestClock clock;
    Store store;
    Tracker tracker{clock, store};
};

TEST(Store, EachChangeSurvivesWithoutAnEnd)
{
    const QTemporaryDir folder;
    Session first(folder);
    Settings settings;
    settings.expectedWorkingTime = 1.5;
    first.tracker.setSettings(settings);
    for (int i = 0; i < 11; ++i)
        first.tracker.addTasks({u"Task\n\u00e4\U0001F600"_s}, 0x00BFF9);
    first.tracker.start(u"T1"_s, 0.25);
    first.tracker.start(u"T2"_s);
    first.tracker.stop(u"T2"_s);

    Session second(folder); // while the first one still exists, as if it had been killed
    EXPECT_EQ(second.tracker.tasks(), first.tracker.tasks());
    EXPECT_THAT(second.tracker.entries(), testing::UnorderedElementsAreArray(first.tracker.entries()));
    EXPECT_EQ(second.tracker.settings(), settings);
    second.tracker.addTasks({u"Next"_s}, {});
    EXPECT_EQ(second.tracker.tasks().back().id, u"T12"_s);
}

TEST(Store, WhatIsNoRecordIsPassedOverAndKept)
{
    const QTemporaryDir folder;
    const QByteArray files[][2] = {
        {"Tasks/T1", R"({"T1":{"name":"Design","color":"red"},"AT1":{"name":"x"}})"},
        {"Tasks/T2", R"({"T2":{"name":)"},
        {"TimeEntries/AB", R"({"ab":{"taskID":"T1","start":20,"end":10},"cab":{"taskID":"T1"},"dab":3})"},
        {"Settings/ME", R"({"expectedWorkingTime":-3,"nonWorkingTime":"1"})"},
    };
    for (const auto& [name, content] : files)
        ASSERT_TRUE(quor::test::writeFile(folder.filePath(QString::fromLatin1(name)), content));
    Session run(folder);
    ASSERT_EQ(run.tracker.tasks().size(), 1U);
    EXPECT_FALSE(run.tracker.tasks()[0].color);
    ASSERT_EQ(run.tracker.entries().size(), 1U);
    EXPECT_EQ(run.tracker.entries()[0].end, run.tracker.entries()[0].start);
    EXPECT_EQ(run.tracker.settings(), Settings());

    run.store.save(std::vector{TimeEntry{u"eab"_s, u"T1"_s, {}, {}}});
    EXPECT_TRUE(quor::test::readFile(folder.filePath(u"TimeEntries/AB"_s)).contains(R"("dab")"));
}

TEST(Store, TellsWhatTheDiskRefusesAndWritesItLater)
{
    const QTemporaryDir folder;
    QFile inTheWay(folder.filePath(u"Tasks"_s));
    ASSERT_TRUE(inTheWay.open(QFile::WriteOnly));
    Session run(folder);
    EXPECT_EQ(run.tracker.addTasks({u"Design"_s}, {}), Outcome::notStored);
    EXPECT_EQ(run.tracker.tasks().size(), 1U) << "tracking goes on";
    inTheWay.remove();
    EXPECT_EQ(run.tracker.addTasks({u"Meeting"_s}, {}), Outcome::done);
    EXPECT_EQ(Session(folder).tracker.tasks().size(), 2U);
}

} // namespace
