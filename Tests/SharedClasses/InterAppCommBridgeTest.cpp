// SPDX-License-Identifier: MIT
#include "InterAppCommBridge/InterAppCommBridge.h"
#include "Platform/Preferences/UserDefaults.h"
#include "Support/TemporaryDataHome.h"
#include "ToolKit/Logging/FileErrorLogger.h"

#include <QDir>
#include <QFile>

#include <gmock/gmock.h>

#include <limits>

using namespace Qt::StringLiterals;
using namespace std::string_view_literals;
using namespace quor;
using platform::UserDefaults;
using toolkit::FileErrorLogger;
using Action = GroupStorage::Action;

namespace {

const QString suite = u"QX77Z4012M.com.quor-app"_s;

class GroupStorageTest : public testing::Test {
protected:
    [[nodiscard]] QByteArray file(const QString& key) const
    {
        QFile file(home_.path(suite + u"/Preferences/"_s + key));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("none");
    }

    test::TemporaryDataHome home_;
    const GroupStorage storage_;
};

TEST_F(GroupStorageTest, EachValueIsAFileThatAShellScriptCanRead)
{
    storage_.setSearchTerm(u"bü"_s);
    storage_.setAction({Action::StopTimer{u"T1"_s, 0}});
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
    EXPECT_EQ(storage_.action(), Action{Action::RequestMenuEntries{}}) << "the later write alone counts";
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
    ASSERT_TRUE(QFile(home_.path(suite)).open(QIODevice::WriteOnly)); // cannot be opened any more
    storage_.setAction({Action::OpenMenu{}});
    EXPECT_EQ(storage_.action(), Action{Action::OpenMenu{}});
    EXPECT_EQ(UserDefaults::standard().dataForKey(u"action"_s), "{\"openMenu\":{}}");
}

/// Keeps what it is asked for; the real one needs a session bus.
class RecordingCenter final : public platform::DistributedNotificationCenter {
public:
    void post(const QString& name) override { posted.append(name); }
    ObserverToken addObserver(const QString& name, Handler handler) override
    {
        if (handler)
            handler({name});
        return ObserverToken(name.size());
    }
    void removeObserver(ObserverToken) override { }

    QStringList posted;
};

TEST(InterAppCommBridge, PostsAndObservesUnderTheWireNamesAndLogsBoth)
{
    const test::TemporaryDataHome home;
    FileErrorLogger::setup(home.path());
    FileErrorLogger::setEnabled(true);
    RecordingCenter center;
    const InterAppCommBridge bridge(center);
    QString received;
    bridge.postNotification(InterAppNotification::loginKill);
    bridge.postNotification(InterAppNotification::updatedMain);
    EXPECT_EQ(center.posted,
        (QStringList{u"com.quor-app.Quor3LoginKillNotification"_s, u"com.quor-app.Quor3.Updated.Main"_s}));
    const std::pair<InterAppNotification, QString> observed[]
        = {{InterAppNotification::helperKill, u"com.quor-app.Quor3HelperKillNotification"_s},
            {InterAppNotification::updatedHelper, u"com.quor-app.Quor3.Updated.Helper"_s}};
    for (const auto& [notification, name] : observed) {
        const auto token = bridge.registerForNotification(
            notification, [&](const platform::Notification& n) { received = n.name; });
        EXPECT_EQ(token, platform::DistributedNotificationCenter::ObserverToken(name.size()));
        EXPECT_EQ(received, name);
    }

    QFile log(home.path(QDir(home.path()).entryList({u"*.log"_s}).value(0)));
    ASSERT_TRUE(log.open(QIODevice::ReadOnly));
    EXPECT_THAT(log.readAll().toStdString(),
        testing::ContainsRegex(
            "postNotification:[0-9]+: notification: com.quor-app.Quor3LoginKillNotification\n"
            "(.|\n)*registerForNotification:[0-9]+: registerForNotification: "
            "com.quor-app.Quor3HelperKillNotification \\(Function\\)\n"));
    FileErrorLogger::setEnabled(false);
    FileErrorLogger::setup(std::nullopt);
}

} // namespace
