// SPDX-License-Identifier: MIT
#include "HelperMenubarManager.h"
#include "AppDelegate.h"
#include "InterAppCommBridge/GroupStorage.h"
#include "View/MenubarMenuRenderer.h"
#include "View/MenubarStatusItemRenderer.h"

#include "MenubarHelper/TestDesktop.h"

#include <QDir>
#include <QDirIterator>
#include <QTest>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace quor;
using namespace quor::helper;
using Action = GroupStorage::Action;
using testing::ElementsAre;

namespace {

const QString updatedMain = u"com.quor-app.Quor3.Updated.Main"_s;
const QString updatedHelper = u"com.quor-app.Quor3.Updated.Helper"_s;
const QString helperKill = u"com.quor-app.Quor3HelperKillNotification"_s;
const QString nothingPending = u" data\n{\"none\":{}}"_s;

class HelperMenubarManagerTest : public testing::Test {
protected:
    void storeAction(const Action& action) const { storage.setAction(action); }

    // What was logged, without the time and the place of the call.
    [[nodiscard]] QStringList loggedMessages() const
    {
        QStringList messages;
        QDirIterator files(logFolder(), QDir::Files);
        while (files.hasNext()) {
            QFile file(files.next());
            EXPECT_TRUE(file.open(QFile::ReadOnly));
            for (const QByteArray& line : file.readAll().split('\n')) {
                if (!line.isEmpty())
                    messages += QString::fromUtf8(line).section(u": "_s, 2);
            }
        }
        return messages;
    }
    [[nodiscard]] QString logFolder() const
    {
        return desktop.home.path(u"com.quor-app.Quor3-MenubarHelper/logs"_s);
    }
    [[nodiscard]] platform::StatusBarButton& button() const { return desktop.items.front()->button(); }

    test::TestDesktop desktop;
    const GroupStorage storage;
};

TEST_F(HelperMenubarManagerTest, StartsInOrder)
{
    storeAction({Action::OpenMenu{}});
    AppDelegate delegate(desktop.services());
    EXPECT_THAT(desktop.steps, ElementsAre(u"observe "_s + updatedHelper, updatedMain + nothingPending));
    ASSERT_EQ(desktop.items.size(), 1);
    EXPECT_TRUE(button().image().pixels.isNull()) << "nothing is drawn before the first notification";
    EXPECT_FALSE(button().isHighlighted());

    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(desktop.steps.back(), u"observe "_s + helperKill);
    desktop.post(updatedHelper);
    EXPECT_FALSE(button().image().pixels.isNull());
}

TEST_F(HelperMenubarManagerTest, EndsOnHelperKillAndForgetsItsObservers)
{
    {
        AppDelegate delegate(desktop.services());
        delegate.applicationDidFinishLaunching();
        desktop.steps.clear();
        desktop.post(helperKill);
        EXPECT_THAT(desktop.steps,
            ElementsAre(helperKill + nothingPending, u"forget "_s + updatedHelper, u"forget "_s + helperKill,
                u"terminate"_s));
    }
    {
        AppDelegate another(desktop.services());
        another.applicationDidFinishLaunching();
    }
    EXPECT_TRUE(desktop.observers.empty()) << "those of a delegate that goes without a kill, too";
    EXPECT_TRUE(desktop.items.empty());
}

TEST_F(HelperMenubarManagerTest, LogsInOrderOrEmptiesTheFolder)
{
    storage.setEnableLogging(true);
    {
        AppDelegate delegate(desktop.services());
        delegate.applicationDidFinishLaunching();
        desktop.post(helperKill);
    }
    EXPECT_THAT(loggedMessages(),
        ElementsAre(u"notification: "_s + updatedMain,
            testing::ResultOf(
                [](const QString& line) {
                    return line.startsWith(u"registerForNotification: "_s + helperKill + u' ');
                },
                true),
            u"killMyself"_s));

    storage.setEnableLogging(false);
    const HelperMenubarManager manager(desktop.services());
    EXPECT_TRUE(QDir(logFolder()).isEmpty());
}

TEST_F(HelperMenubarManagerTest, HandlesEachPendingAction)
{
    const HelperMenubarManager manager(desktop.services());
    MenubarStatusItemData data;
    data.menuBarShowDailyTotal = true;
    for (const Action& action : std::vector<Action>{{Action::StopTimer{u"T"_s, -60}}, {Action::OpenQuor{}},
             {Action::QuitQuor{}}, {Action::StartTimer{u"T"_s}}, {Action::None{}}}) {
        storage.setTimerData({});
        desktop.post(updatedHelper);
        const auto clock = button().image();
        storage.setTimerData(data);
        storeAction(action);
        desktop.steps.clear();
        desktop.post(updatedHelper);
        EXPECT_EQ(storage.action(), action) << "left for the main application";
        EXPECT_EQ(desktop.steps.size(), 1) << "answered with nothing";
        EXPECT_FALSE(button().image() == clock) << "refreshed";
    }
}

TEST_F(HelperMenubarManagerTest, RequestsRowsForAPressAndForOpenMenu)
{
    const HelperMenubarManager manager(desktop.services());
    storage.setSearchTerm(u"old"_s);
    desktop.steps.clear();
    QTest::mouseClick(&button(), Qt::RightButton);
    const QString requested = updatedMain + u" data\n{\"requestMenuEntries\":{}}"_s;
    EXPECT_THAT(desktop.steps, ElementsAre(requested));
    EXPECT_EQ(storage.searchTerm(), u""_s);
    EXPECT_TRUE(button().isHighlighted());
    EXPECT_EQ(
        manager.menubarMenuRenderer()->eventFrame(), QRectF(button().mapToGlobal(QPoint()), button().size()));

    desktop.post(updatedHelper);
    EXPECT_FALSE(button().isHighlighted()) << "the rows have arrived";
    EXPECT_EQ(storage.action(), Action()) << "and the slot is free";

    storeAction({Action::OpenMenu{}});
    desktop.steps.clear();
    desktop.post(updatedHelper);
    EXPECT_EQ(desktop.steps.back(), requested);
    EXPECT_TRUE(button().isHighlighted());
}

TEST_F(HelperMenubarManagerTest, EndsWhereTheMainApplicationHasGone)
{
    const HelperMenubarManager manager(desktop.services());
    desktop.running = {{u"com.quor-app.Quor3-macOS.other"_s}};
    desktop.steps.clear();
    QTest::mouseClick(&button(), Qt::LeftButton);
    EXPECT_THAT(
        desktop.steps, ElementsAre(updatedMain + u" data\n{\"requestMenuEntries\":{}}"_s, u"terminate"_s));
}

TEST_F(HelperMenubarManagerTest, SendsWhatIsChosenInTheMenu)
{
    auto manager = std::make_unique<HelperMenubarManager>(desktop.services());
    const auto& menu = *manager->menubarMenuRenderer();
    menu.stopTimer(u"T"_s, -300);
    EXPECT_EQ(storage.action(), (Action{Action::StopTimer{u"T"_s, -300}}));
    menu.adjustTimer(u"T"_s, 0);
    EXPECT_EQ(storage.action(), (Action{Action::AdjustTimer{u"T"_s, 0}}));
    menu.startTimer(u"T"_s);
    EXPECT_EQ(storage.action(), (Action{Action::StartTimer{u"T"_s}}));
    menu.openQuorHandler();
    EXPECT_EQ(storage.action(), (Action{Action::OpenQuor{}}));
    menu.quitQuorHandler();
    EXPECT_EQ(storage.action(), (Action{Action::QuitQuor{}}));
    EXPECT_EQ(desktop.steps.filter(updatedMain).size(), 1 + 5) << "one is of its start";

    const auto startTimer = menu.startTimer;
    const auto openQuor = menu.openQuorHandler;
    manager->showStatusItem(false);
    openQuor();
    manager.reset();
    storeAction({});
    startTimer(u"T"_s);
    EXPECT_EQ(storage.action(), Action()) << "its manager has gone";
}

TEST_F(HelperMenubarManagerTest, RemovesAndShowsTheStatusItem)
{
    HelperMenubarManager manager(desktop.services());
    desktop.post(updatedHelper);
    manager.showStatusItem(true);
    EXPECT_EQ(desktop.items.size(), 1);
    manager.showStatusItem(false);
    manager.showStatusItem(false);
    EXPECT_TRUE(desktop.items.empty());
    EXPECT_TRUE(desktop.window.findChildren<QWidget*>().isEmpty());

    storeAction({Action::RequestMenuEntries{}});
    desktop.post(updatedHelper);
    EXPECT_EQ(storage.action(), Action()) << "the slot is served without a status item";
    storeAction({Action::OpenMenu{}});
    desktop.steps.clear();
    desktop.post(updatedHelper);
    EXPECT_EQ(desktop.steps.size(), 1);

    manager.showStatusItem(true);
    ASSERT_EQ(desktop.items.size(), 1);
    desktop.post(updatedHelper);
    EXPECT_FALSE(button().image().pixels.isNull());
    const HelperMenubarManager second(desktop.services());
    EXPECT_EQ(desktop.items.size(), 2);
}

TEST_F(HelperMenubarManagerTest, GivesTheFormatterItsSettings)
{
    const HelperMenubarManager manager(desktop.services());
    storage.setShowWorkingDays(true);
    storage.setWorkingDayLengthSeconds(7200);
    storage.setShowDurationInPercent(true);
    desktop.post(updatedHelper);
    const auto& formatter = manager.statusItemRenderer()->durationFormatter;
    EXPECT_TRUE(formatter.showWorkingDays());
    EXPECT_TRUE(formatter.showDurationInPercent());
    EXPECT_EQ(formatter.workingDayLengthSeconds(), 7200);
}

} // namespace
