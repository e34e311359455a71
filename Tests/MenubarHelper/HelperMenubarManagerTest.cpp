// SPDX-License-Identifier: MIT
#include "HelperMenubarManager.h"
#include "AppDelegate.h"
#include "InterAppCommBridge/GroupStorage.h"
#include "View/MenubarMenuRenderer.h"

#include "MenubarHelper/TestDesktop.h"

#include <QDir>
#include <QFile>
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
    const QDir folder(desktop.home.path(u"com.quor-app.Quor3-MenubarHelper/logs"_s));
    QByteArray log;
    for (const QString& name : folder.entryList(QDir::Files)) {
        QFile file(folder.filePath(name));
        EXPECT_TRUE(file.open(QFile::ReadOnly));
        log += file.readAll();
    }
    EXPECT_THAT(log.toStdString(),
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
    for (const Action& action : {Action{Action::StopTimer{u"T"_s, -60}}, Action{Action::OpenQuor{}},
             Action{Action::QuitQuor{}}, Action{Action::StartTimer{u"T"_s}}, Action{Action::None{}}}) {
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

TEST_F(HelperMenubarManagerTest, SendsWhatIsChosenInTheMenu)
{
    auto manager = std::make_unique<HelperMenubarManager>(desktop.services());
    const auto stopTimer = manager->menubarMenuRenderer()->stopTimer;
    const auto adjustTimer = manager->menubarMenuRenderer()->adjustTimer;
    const auto startTimer = manager->menubarMenuRenderer()->startTimer;
    const auto openQuor = manager->menubarMenuRenderer()->openQuorHandler;
    const auto quitQuor = manager->menubarMenuRenderer()->quitQuorHandler;
    const std::pair<std::function<void()>, Action> cases[] = {
        {[&] { stopTimer(u"T"_s, -300); }, {Action::StopTimer{u"T"_s, -300}}},
        {[&] { adjustTimer(u"T"_s, 0); }, {Action::AdjustTimer{u"T"_s, 0}}},
        {[&] { startTimer(u"T"_s); }, {Action::StartTimer{u"T"_s}}},
        {[&] { quitQuor(); }, {Action::QuitQuor{}}},
        {[&] { manager->showStatusItem(false), openQuor(); }, {Action::OpenQuor{}}},
    };
    for (const auto& [choose, action] : cases) {
        desktop.steps.clear();
        choose();
        EXPECT_EQ(storage.action(), action);
        EXPECT_EQ(desktop.steps.filter(updatedMain).size(), 1);
    }
    manager.reset();
    startTimer(u"T"_s);
    EXPECT_EQ(storage.action(), Action{Action::OpenQuor{}}) << "its manager has gone";
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
    for (const Action& action : {Action{Action::RequestMenuEntries{}}, Action{Action::OpenMenu{}}}) {
        storage.setAction(action);
        desktop.steps.clear();
        desktop.post(updatedHelper);
        EXPECT_EQ(storage.action(), Action()) << "the slot is served without a status item";
        EXPECT_EQ(desktop.steps.size(), 1);
    }
    manager.showStatusItem(true);
    ASSERT_EQ(desktop.items.size(), 1);
    desktop.post(updatedHelper);
    EXPECT_FALSE(button().image().pixels.isNull());
}

} // namespace
