// SPDX-License-Identifier: MIT
#include "InterAppCommBridge/InterAppCommBridge.h"
#include "Support/Files.h"
#include "Support/TemporaryDataHome.h"

#include <QCoreApplication>

#include <gmock/gmock.h>

#include <functional>
#include <limits>

using namespace Qt::StringLiterals;
using namespace quor;
using Action = InterAppCommBridge::GroupStorage::Action;

namespace {

const QString suite = u"QX77Z4012M.com.quor-app"_s;

class GroupStorageTest : public testing::Test {
protected:
    [[nodiscard]] QString folder() const { return home_.path(suite + u"/Preferences/"_s); }
    [[nodiscard]] QByteArray file(const QString& key) const { return test::readFile(folder() + key); }

    test::TemporaryDataHome home_;
    const GroupStorage storage_{};
};

TEST_F(GroupStorageTest, EachKeyIsAFileWithThisNameAndTheseBytes)
{
    const MenubarStatusItemData data{
        28800, 0.5, 60, true, 0xF58C6E, {1700000000.5}, u"Büro"_s, true, false, true, false};
    const std::vector<MenuEntry> entries{{MenuEntry::Search{}}, {MenuEntry::StopPast{u"T1"_s}}};
    const Action action{Action::StopTimer{u"T1"_s, -300}};
    const std::tuple<QString, QByteArray, std::function<void()>, std::function<bool()>> cases[] = {
        {u"timerData"_s,
            "data\n{\"expectedWorkingTime\":28800,\"nonWorkingTime\":0.5,\"inactiveTotalTimeToday\":60,"
            "\"trackerActive\":true,\"activeColor\":16092270,\"activeStartTimes\":[1700000000.5],"
            "\"taskName\":\"Büro\",\"menuBarShowActiveTask\":true,\"menuBarShowDayProgress\":false,"
            "\"menuBarShowRunningTimer\":true,\"menuBarShowDailyTotal\":false}",
            [&] { storage_.setTimerData(data); }, [&] { return storage_.timerData() == data; }},
        {u"menuEntryData"_s, "data\n[{\"search\":{}},{\"stopPast\":{\"_0\":\"T1\"}}]",
            [&] { storage_.setMenuEntryData(entries); }, [&] { return storage_.menuEntryData() == entries; }},
        {u"action"_s, "data\n{\"stopTimer\":{\"taskID\":\"T1\",\"delta\":-300}}",
            [&] { storage_.setAction(action); }, [&] { return storage_.action() == action; }},
        {u"searchTerm"_s, "string\nbü", [&] { storage_.setSearchTerm(u"bü"_s); },
            [&] { return storage_.searchTerm() == u"bü"; }},
        {u"showWorkingDays"_s, "bool\ntrue", [&] { storage_.setShowWorkingDays(true); },
            [&] { return storage_.showWorkingDays(); }},
        {u"workingDayLengthSeconds"_s, "real\n27000.5", [&] { storage_.setWorkingDayLengthSeconds(27000.5); },
            [&] { return storage_.workingDayLengthSeconds() == 27000.5; }},
        {u"showDurationInPercent"_s, "bool\ntrue", [&] { storage_.setShowDurationInPercent(true); },
            [&] { return storage_.showDurationInPercent(); }},
        {u"enableLogging"_s, "bool\ntrue", [&] { storage_.setEnableLogging(true); },
            [&] { return storage_.enableLogging(); }},
    };
    for (const auto& [key, bytes, write, isRead] : cases) {
        write();
        EXPECT_EQ(file(key), bytes);
        EXPECT_EQ(QDir(folder()).entryList(QDir::Files | QDir::Hidden), QStringList{key});
        ASSERT_TRUE(test::writeFile(folder() + key, bytes));
        EXPECT_TRUE(isRead()) << key.toStdString();
        ASSERT_TRUE(QFile::remove(folder() + key));
    }
}

TEST_F(GroupStorageTest, WhatCannotBeReadOrWrittenIsTheDefault)
{
    for (const char* bad : {"data\n", "data\n{", "data\n[{\"search\":{}},{}]", "string\n{\"openMenu\":{}}"}) {
        for (const auto& key : {u"timerData"_s, u"menuEntryData"_s, u"action"_s})
            ASSERT_TRUE(test::writeFile(folder() + key, bad));
        EXPECT_EQ(storage_.timerData(), MenubarStatusItemData());
        EXPECT_THAT(storage_.menuEntryData(), testing::IsEmpty());
        EXPECT_EQ(storage_.action(), Action());
    }
    EXPECT_EQ(storage_.searchTerm(), QString());
    EXPECT_EQ(storage_.workingDayLengthSeconds(), 0);
    EXPECT_FALSE(storage_.showWorkingDays() || storage_.showDurationInPercent() || storage_.enableLogging());
    storage_.setAction({Action::StopTimer{u"T1"_s, std::numeric_limits<double>::infinity()}});
    EXPECT_EQ(file(u"action"_s), "data\n");

    QDir(home_.path(suite)).removeRecursively();
    ASSERT_TRUE(test::writeFile(home_.path(suite), {})); // cannot be opened any more
    QCoreApplication::setApplicationName(u"com.example.Standard"_s);
    storage_.setAction({Action::OpenMenu{}});
    const QString standard = home_.path(u"com.example.Standard/Preferences/action"_s);
    EXPECT_EQ(test::readFile(standard), "data\n{\"openMenu\":{}}");
    ASSERT_TRUE(test::writeFile(standard, "data\n{\"quitQuor\":{}}"));
    EXPECT_EQ(storage_.action(), Action{Action::QuitQuor{}});
}

} // namespace
