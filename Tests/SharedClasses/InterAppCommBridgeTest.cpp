// SPDX-License-Identifier: MIT
#include "InterAppCommBridge/InterAppCommBridge.h"
#include "Platform/Preferences/UserDefaults.h"
#include "Support/Files.h"
#include "Support/TemporaryDataHome.h"

#include <gmock/gmock.h>

#include <limits>

using namespace Qt::StringLiterals;
using namespace std::string_view_literals;
using namespace quor;
using platform::UserDefaults;
using Action = GroupStorage::Action;

namespace {

const QString suite = u"QX77Z4012M.com.quor-app"_s;

class GroupStorageTest : public testing::Test {
protected:
    [[nodiscard]] QByteArray file(const QString& key) const
    {
        return test::readFile(home_.path(suite + u"/Preferences/"_s + key));
    }

    test::TemporaryDataHome home_;
    const GroupStorage storage_;
};

TEST_F(GroupStorageTest, EachValueIsAFileThatAShellScriptCanRead)
{
    storage_.setSearchTerm(u"bü"_s);
    storage_.setAction({Action::RequestMenuEntries{}});
    storage_.setMenuEntryData({{MenuEntry::Search{}}, {MenuEntry::Separator{}}});
    MenubarStatusItemData data;
    data.taskName = u"A"_s;
    storage_.setTimerData(data);
    storage_.setShowWorkingDays(true);
    storage_.setShowDurationInPercent(true);
    storage_.setEnableLogging(true);
    storage_.setWorkingDayLengthSeconds(27000.5);
    EXPECT_EQ(file(u"action"_s), "data\n{\"requestMenuEntries\":{}}");
    EXPECT_EQ(file(u"menuEntryData"_s), "data\n[{\"search\":{}},{\"separator\":{}}]");
    EXPECT_EQ(file(u"showWorkingDays"_s), "bool\ntrue");
    EXPECT_EQ(storage_.searchTerm(), u"bü"_s);
    EXPECT_EQ(storage_.action(), Action{Action::RequestMenuEntries{}});
    EXPECT_EQ(storage_.menuEntryData().size(), 2U);
    EXPECT_EQ(storage_.timerData(), data);
    EXPECT_TRUE(storage_.showWorkingDays() && storage_.showDurationInPercent() && storage_.enableLogging());
    EXPECT_EQ(storage_.workingDayLengthSeconds(), 27000.5);
}

TEST_F(GroupStorageTest, WhatCannotBeReadOrWrittenIsTheDefault)
{
    const UserDefaults defaults = UserDefaults::suiteOrStandard(suite);
    for (const char* bad : {"unset", "", "{", "[{\"search\":{}},{}]"}) {
        for (const auto& key : {u"timerData"_s, u"menuEntryData"_s, u"action"_s})
            ASSERT_TRUE(
                bad == "unset"sv ? defaults.removeObject(key) : defaults.setObject(QByteArray(bad), key));
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
    storage_.setAction({Action::OpenMenu{}});
    EXPECT_EQ(storage_.action(), Action{Action::OpenMenu{}});
    EXPECT_EQ(UserDefaults::standard().dataForKey(u"action"_s), "{\"openMenu\":{}}");
}

} // namespace
