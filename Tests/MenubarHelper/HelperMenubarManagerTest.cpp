// SPDX-License-Identifier: MIT
#include "HelperMenubarManager.h"
#include "AppDelegate.h"
#include "InterAppCommBridge/InterAppCommBridge.h"
#include "View/Menu/MenubarMenuRenderer.h"

#include "MenubarHelper/TestDesktop.h"
#include "Support/Files.h"

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
    [[nodiscard]] platform::StatusBarButton& button() const { return desktop.items.front()->button(); }

    test::TestDesktop desktop;
    const GroupStorage storage{};
};

TEST_F(HelperMenubarManagerTest, StartsInOrder)
{
    storage.setAction({Action::OpenMenu{}});
    AppDelegate delegate(desktop.services());
    EXPECT_THAT(desktop.steps, ElementsAre(u"observe "_s + updatedHelper, updatedMain + nothingPending));
    EXPECT_TRUE(button().image().pixels.isNull()) << "nothing is drawn before the first notification";

    delegate.applicationDidFinishLaunching();
    EXPECT_EQ(desktop.steps.back(), u"observe "_s + helperKill);
    InterAppCommBridge(desktop).postNotification(InterAppNotification::loginKill);
    EXPECT_EQ(desktop.steps.back(), u"com.quor-app.Quor3LoginKillNotification"_s + nothingPending);
    desktop.post(updatedHelper);
    EXPECT_FALSE(button().image().pixels.isNull());
}

TEST_F(HelperMenubarManagerTest, EndsOnHelperKillAndForgetsItsObservers)
{
    for (const bool killed : {false, true}) {
        AppDelegate delegate(desktop.services());
        delegate.applicationDidFinishLaunching();
        desktop.steps.clear();
        if (killed)
            desktop.post(helperKill);
    }
    EXPECT_THAT(desktop.steps,
        ElementsAre(helperKill + nothingPending, u"forget "_s + updatedHelper, u"forget "_s + helperKill,
            u"terminate"_s));
    EXPECT_TRUE(desktop.observers.empty());
}

TEST_F(HelperMenubarManagerTest, LogsInOrderOrEmptiesTheFolder)
{
    storage.setEnableLogging(true);
    {
        AppDelegate delegate(desktop.services());
        delegate.applicationDidFinishLaunching();
        desktop.post(helperKill);
    }
    const QDir folder(desktop.home.path(u"com.quor-app.Quor3-MenubarHelper/logs"_s));
    EXPECT_THAT(test::readFile(folder.filePath(folder.entryList(QDir::Files).value(0))).toStdString(),
        testing::MatchesRegex("[^\n]*: notification: com.quor-app.Quor3.Updated.Main\n"
                              "[^\n]*: registerForNotification: com.quor-app.Quor3HelperKillNotification "
                              "[^\n]+\n[^\n]*: killMyself\n"));

    storage.setEnableLogging(false);
    const HelperMenubarManager manager(desktop.services());
    EXPECT_TRUE(folder.isEmpty());
}

TEST_F(HelperMenubarManagerTest, RefreshesAndLeavesTheActionsOfTheMainApplication)
{
    const HelperMenubarManager manager(desktop.services());
    MenubarStatusItemData data;
    data.taskName = u"Design"_s;
    for (const Action& action : {Action{Action::StopTimer{u"T"_s, -60}}, Action{Action::OpenQuor{}}}) {
        const auto before = button().image();
        data.menuBarShowActiveTask = !data.menuBarShowActiveTask;
        storage.setTimerData(data);
        storage.setAction(action);
        desktop.steps.clear();
        desktop.post(updatedHelper);
        EXPECT_EQ(storage.action(), action);
        EXPECT_EQ(desktop.steps.size(), 1) << "answered with nothing";
        EXPECT_FALSE(button().image() == before);
    }
}

TEST_F(HelperMenubarManagerTest, OpensTheMenuForAPressAndForOpenMenu)
{
    const HelperMenubarManager manager(desktop.services());
    const auto& menu = *manager.menubarMenuRenderer();
    storage.setSearchTerm(u"old"_s);
    desktop.steps.clear();
    desktop.eventMonitors.fireLocal(
        {platform::EventType::rightMouseDown, {}, {}, desktop.window.windowHandle()});
    const QString requested = updatedMain + u" data\n{\"requestMenuEntries\":{}}"_s;
    EXPECT_THAT(desktop.steps, ElementsAre(requested));
    EXPECT_EQ(storage.searchTerm(), u""_s);
    EXPECT_FALSE(menu.customWindow());
    desktop.post(updatedHelper);
    EXPECT_TRUE(menu.customWindow()) << "the rows have arrived";
    EXPECT_EQ(storage.action(), Action()) << "and the slot is free";

    for (const bool opens : {false, true}) {
        storage.setAction({Action::OpenMenu{}});
        desktop.steps.clear();
        desktop.post(updatedHelper);
        EXPECT_EQ(desktop.steps.back() == requested, opens);
        EXPECT_EQ(button().isHighlighted(), opens);
        EXPECT_FALSE(menu.customWindow());
    }
}

TEST_F(HelperMenubarManagerTest, ShowsAndQuitsTheMainApplicationAndClosesTheMenu)
{
    const struct {
        void (AppDelegate::*choose)();
        QString action;
    } cases[] = {
        {&AppDelegate::openQuorClicked, u" data\n{\"openQuor\":{}}"_s},
        {&AppDelegate::quitQuorClicked, u" data\n{\"quitQuor\":{}}"_s},
    };
    AppDelegate delegate(desktop.services());
    desktop.frontmost = platform::RunningApplication{u"org.example.Editor"_s, 1'000'000};
    for (const auto& [choose, action] : cases) {
        desktop.eventMonitors.fireLocal(
            {platform::EventType::leftMouseDown, {}, {}, desktop.window.windowHandle()});
        desktop.post(updatedHelper); // the rows
        ASSERT_TRUE(button().isHighlighted());
        desktop.steps.clear();
        (delegate.*choose)();
        EXPECT_THAT(desktop.steps, ElementsAre(updatedMain + action)) << "and activates no application";
        EXPECT_FALSE(button().isHighlighted());
    }
}

TEST_F(HelperMenubarManagerTest, RemovesAndShowsTheStatusItem)
{
    HelperMenubarManager manager(desktop.services());
    manager.showStatusItem(true);
    EXPECT_EQ(desktop.items.size(), 1);
    manager.showStatusItem(false);
    EXPECT_TRUE(desktop.items.empty());
    EXPECT_TRUE(desktop.window.findChildren<QWidget*>().isEmpty());
    for (const Action& action : {Action{Action::RequestMenuEntries{}}, Action{Action::OpenMenu{}}}) {
        storage.setAction(action);
        desktop.post(updatedHelper);
        EXPECT_EQ(storage.action(), Action()) << "the slot is served without a status item";
    }
    manager.showStatusItem(true);
    ASSERT_EQ(desktop.items.size(), 1);
    desktop.post(updatedHelper);
    EXPECT_FALSE(button().image().pixels.isNull());
}

} // namespace
