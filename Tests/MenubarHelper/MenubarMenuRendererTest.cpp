// SPDX-License-Identifier: MIT
#include "View/Menu/MenubarMenuRenderer.h"
#include "View/Menu/MenuWindow.h"
#include "View/MenuBarCustomMenu/MenuBarCustomMenu.h"

#include "MenubarHelper/TestDesktop.h"
#include "Support/WaitFor.h"

#include <QApplication>
#include <QTest>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace quor;
using namespace quor::helper;
using quor::test::waitFor;
using testing::ElementsAre;
using Action = MenuEntry::Entry::Action;

namespace {

// The window of the editor must not belong to this process.
const platform::RunningApplication editor{u"org.example.Editor"_s, 1'000'000};
const QString givenBack = u"activate "_s + editor.bundleIdentifier;
const QPointF elsewhere(700, 700);

std::vector<MenuEntry> rows(const QString& label = u"Design"_s, Action action = {Action::Start{u"T1"_s}})
{
    MenuEntry::Entry entry;
    entry.label = label;
    entry.action = std::move(action);
    return {{MenuEntry::Search{}}, {entry}, {MenuEntry::Separator{}}};
}

class MenubarMenuRendererTest : public testing::Test {
protected:
    MenubarMenuRendererTest()
    {
        desktop.frontmost = editor;
        menu->requestMenuEntries = [this](const QString& term) { steps += u"request "_s + term; };
        menu->stopTimer
            = [this](const QString& task, double delta) { steps += sent(u"stop "_s + task, delta); };
        menu->adjustTimer
            = [this](const QString& task, double delta) { steps += sent(u"adjust "_s + task, delta); };
        menu->startTimer = [this](const QString& task) { steps += sent(u"start "_s + task, 0); };
        menu->quitQuorHandler = [this] { steps += sent(u"quit"_s, 0); };
        menu->openQuorHandler = [this] {
            menu->forgetPreviousActiveApp();
            menu->closeWindow();
            steps += sent(u"show"_s, 0);
        };
    }
    ~MenubarMenuRendererTest() override
    {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// Returns what was sent, and whether the window was still open then.
    [[nodiscard]] QString sent(const QString& what, double delta) const
    {
        return u"%1 %2 %3"_s.arg(what).arg(delta).arg(menu->customWindow() ? u"open" : u"closed");
    }
    [[nodiscard]] platform::StatusBarButton& button() const { return item->button(); }
    [[nodiscard]] QWindow* bar() const { return button().window()->windowHandle(); }
    [[nodiscard]] MenuBarCustomMenu& list() const
    {
        return *menu->customWindow()->findChild<MenuBarCustomMenu*>();
    }
    void press(platform::EventType type = platform::EventType::leftMouseDown, Qt::KeyboardModifiers keys = {})
    {
        desktop.eventMonitors.fireLocal({type, QPointF(50, 50), keys, bar()});
    }
    void pressOutside(QPointF place)
    {
        desktop.eventMonitors.fireGlobal({platform::EventType::leftMouseDown, place, {}, {}});
    }
    void type(const QString& text)
    {
        for (const QChar letter : text)
            QTest::keyClick(bar(), letter.toLatin1());
    }
    void openWith(std::vector<MenuEntry> entries)
    {
        press();
        menu->showEntries(std::move(entries));
        ASSERT_TRUE(waitFor([&] { return menu->customWindow() && menu->customWindow()->isActiveWindow(); }));
        steps.clear();
    }
    [[nodiscard]] bool isClosed() const
    {
        return !menu->customWindow() && !button().isHighlighted() && desktop.eventMonitors.global.empty()
            && !desktop.windowServer.keyboard;
    }

    test::TestDesktop desktop;
    std::unique_ptr<platform::StatusItem> item
        = desktop.statusBar.statusItem(platform::StatusItem::variableLength);
    std::unique_ptr<MenubarMenuRenderer> menu
        = std::make_unique<MenubarMenuRenderer>(*item, desktop.services());
    QStringList steps;
};

TEST_F(MenubarMenuRendererTest, RequestsForPressesOnTheItemAlone)
{
    using platform::EventType;
    const struct {
        const char* what;
        platform::InputEvent event;
        bool taken;
    } cases[] = {
        {"left", {EventType::leftMouseDown, {}, {}, bar()}, true},
        {"right, asks again", {EventType::rightMouseDown, {}, {}, bar()}, true},
        {"to move the item", {EventType::leftMouseDown, {}, Qt::MetaModifier, bar()}, false},
        {"another window", {EventType::leftMouseDown, {}, {}, nullptr}, false},
    };
    for (const auto& [what, event, taken] : cases) {
        steps.clear();
        EXPECT_EQ(desktop.eventMonitors.fireLocal(event), !taken) << what;
        EXPECT_EQ(steps, taken ? QStringList{u"request "_s} : QStringList{}) << what;
        EXPECT_TRUE(button().isHighlighted());
    }
    EXPECT_FALSE(menu->customWindow()) << "before the rows arrive";
    EXPECT_TRUE(desktop.windowServer.keyboard);

    button().click(); // as a screen reader does
    EXPECT_EQ(steps.size(), 1);
}

TEST_F(MenubarMenuRendererTest, OpensUnderTheItemInPlaceAndSizeBeforeItShows)
{
    openWith(rows());
    const QRect frame = menu->customWindow()->geometry();
    EXPECT_EQ(desktop.windowServer.preparedFrame, frame);
    const QRect bars = desktop.window.frameGeometry();
    EXPECT_EQ(frame.topLeft(), QPoint(bars.left(), bars.bottom() + 1));
    EXPECT_EQ(frame.size(), list().size());
    EXPECT_TRUE(button().isHighlighted());

    menu->showEntries(rows(QString(80, u'W')));
    EXPECT_EQ(menu->customWindow()->geometry(), QRect(frame.topLeft(), QSize(500, frame.height())));
    desktop.window.setGeometry(600, 90, 100, 22);
    const QPoint corner = QPoint(600, 90) + button().geometry().bottomRight();
    EXPECT_TRUE(waitFor([&] { return menu->customWindow()->geometry().topRight() == corner + QPoint(0, 1); }))
        << "it follows, and ends where the item ends";
    EXPECT_EQ(menu->customWindow()->size(), list().size());
}

TEST_F(MenubarMenuRendererTest, OpensForRowsWithoutARequestAndAfterACancelledOne)
{
    for (const bool cancels : {false, true}) {
        if (cancels) {
            press();
            type(u"d"_s);
            QTest::keyClick(bar(), Qt::Key_Escape);
            EXPECT_TRUE(isClosed()) << "nothing of the request stays";
        }
        menu->showEntries(rows());
        ASSERT_TRUE(waitFor([&] { return menu->customWindow()->isActiveWindow(); }));
        EXPECT_EQ(menu->customWindow()->pos(), QPoint(49, 62)) << "below the button";
        EXPECT_EQ(list().searchView().text(), QString());
        menu->closeWindow();
        EXPECT_TRUE(isClosed());
        EXPECT_FALSE(desktop.steps.contains(givenBack)) << "nobody asked while the editor had the keyboard";
    }
    desktop.window.hide();
    menu->showEntries(rows());
    EXPECT_TRUE(isClosed()) << "there is no item to hang below";
}

TEST_F(MenubarMenuRendererTest, ClosesAndGivesTheKeyboardBack)
{
    using Choice = std::function<void()>;
    const auto choose = [&](const MenuEntry& row) { list().entryClicked(row); };
    const auto entry = [](Action action) { return rows({}, std::move(action))[1]; };
    const struct {
        const char* what;
        Choice choice;
        QStringList steps;
        bool closes;
        bool givesBack;
    } cases[] = {
        {"stop", [&] { choose(entry({Action::Stop{u"T"_s}})); }, {u"stop T 0 open"_s}, true, true},
        {"start", [&] { choose(entry({Action::Start{u"T"_s}})); }, {u"start T 0 open"_s}, true, true},
        {"quit", [&] { choose(entry({Action::Quit{}})); }, {u"quit 0 open"_s}, true, true},
        {"show", [&] { choose(entry({Action::Show{}})); }, {u"show 0 closed"_s}, true, false},
        {"none", [&] { choose(entry({})); }, {}, false, false},
        {"other rows", [&] { choose({MenuEntry::StopPast{u"T"_s}}); }, {}, false, false},
        {"stop in the past", [&] { list().adjustedStopHandler(u"T"_s, -5); }, {u"stop T -300 open"_s}, true,
            true},
        {"rewind", [&] { list().adjustStartHandler(u"T"_s, -15); }, {u"adjust T -900 open"_s}, false, false},
        {"search", [&] { list().searchTermChangedHandler(u"des"_s); }, {u"request des"_s}, false, false},
        {"Escape", [&] { QTest::keyClick(menu->customWindow()->windowHandle(), Qt::Key_Escape); }, {}, true,
            true},
        {"a second press", [&] { press(); }, {}, true, true},
        {"openMenu", [&] { menu->toggle(); }, {}, true, true},
        {"a press in the list", [&] { pressOutside(list().mapToGlobal(QPointF(9, 9))); }, {}, false, false},
        {"a press elsewhere", [&] { pressOutside(elsewhere); }, {}, true, false},
        {"the item has gone", [&] { desktop.window.hide(), QCoreApplication::processEvents(); }, {}, true,
            true},
    };
    for (const auto& each : cases) {
        desktop.window.show();
        desktop.steps.clear();
        openWith(rows());
        const QPointer window(menu->customWindow());
        each.choice();
        EXPECT_EQ(steps, each.steps) << each.what;
        EXPECT_EQ(menu->customWindow() == nullptr, each.closes) << each.what;
        if (!each.closes)
            menu->forgetPreviousActiveApp(), menu->closeWindow();
        EXPECT_TRUE(isClosed()) << each.what;
        EXPECT_EQ(desktop.steps.contains(givenBack), each.givesBack) << each.what;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        EXPECT_FALSE(window) << each.what << ": nothing of a closed menu stays";
    }
}

TEST_F(MenubarMenuRendererTest, GivesTheSearchFieldWhatIsTypedBeforeItIsThere)
{
    desktop.windowServer.refusals = 2;
    press();
    ASSERT_TRUE(waitFor([&] { return desktop.windowServer.keyboard == bar(); })) << "tried until it is free";
    type(u"de"_s);
    press();
    QInputMethodEvent composed;
    composed.setCommitString(u"é"_s);
    QCoreApplication::sendEvent(&desktop.window, &composed);
    menu->showEntries(rows());
    menu->showEntries(rows());
    type(u"s"_s);
    EXPECT_TRUE(waitFor([&] { return list().searchView().text() == u"deés"_s; }));
    EXPECT_FALSE(desktop.windowServer.keyboard);
}

TEST_F(MenubarMenuRendererTest, ChoosesARowByKeysThatAreTypedBeforeItIsThere)
{
    press();
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Return, Qt::Key_Return})
        QTest::keyClick(bar(), key);
    menu->showEntries(rows());
    EXPECT_TRUE(waitFor([&] { return isClosed(); }));
    EXPECT_THAT(steps, ElementsAre(u"request "_s, u"start T1 0 open"_s));
}

TEST_F(MenubarMenuRendererTest, ReleasesTheKeyboardIfNoMenuComes)
{
    const struct {
        const char* what;
        std::function<void()> end;
        bool highlighted;
    } cases[] = {
        {"Escape", [&] { QTest::keyClick(bar(), Qt::Key_Escape); }, false},
        {"a press elsewhere", [&] { pressOutside(elsewhere); }, true},
        {"no answer", [&] { waitFor([&] { return !desktop.windowServer.keyboard; }); }, true},
    };
    for (const auto& [what, end, highlighted] : cases) {
        press();
        type(QString::fromLatin1(what).left(2));
        QTest::keyClick(bar(), Qt::Key_Down);
        QTest::keyClick(bar(), Qt::Key_Return);
        end();
        EXPECT_FALSE(desktop.windowServer.keyboard) << what;
        EXPECT_EQ(button().isHighlighted(), highlighted) << what;
    }
    menu->showEntries(rows());
    EXPECT_TRUE(waitFor([&] { return list().searchView().text() == u"no"_s; })) << "text waits for late rows";
    EXPECT_TRUE(menu->customWindow()) << "commands do not";
}

TEST_F(MenubarMenuRendererTest, ClosesWithTheKeyboardOnlyWherePressesGoUnseen)
{
    for (const bool wayland : {false, true}) {
        desktop.windowServer.wayland = wayland;
        openWith(rows());
        desktop.window.activateWindow();
        ASSERT_TRUE(waitFor([&] { return !button().isHighlighted(); }));
        QCoreApplication::processEvents();
        EXPECT_EQ(menu->customWindow() == nullptr, wayland);
        if (wayland) {
            press();
            EXPECT_EQ(steps, QStringList()) << "the press that has closed it";
            EXPECT_FALSE(desktop.steps.contains(givenBack));
        } else {
            menu->customWindow()->activateWindow();
            EXPECT_TRUE(waitFor([&] { return button().isHighlighted(); }));
            menu->forgetPreviousActiveApp(), menu->closeWindow();
        }
    }
}

TEST_F(MenubarMenuRendererTest, FollowsTheCompositor)
{
    openWith(rows());
    const auto corner = [&] { return menu->customWindow()->grab().toImage().pixelColor(0, 0).alpha(); };
    EXPECT_EQ(corner(), 255);
    desktop.windowServer.composited = true;
    desktop.windowServer.compositingChanged();
    EXPECT_EQ(corner(), 0);
}

TEST_F(MenubarMenuRendererTest, EndsWithItsMenuOpen)
{
    openWith(rows());
    const QPointer window(menu->customWindow());
    menu.reset();
    EXPECT_FALSE(window);
    EXPECT_FALSE(button().isHighlighted());
    EXPECT_TRUE(desktop.eventMonitors.local.empty() && desktop.eventMonitors.global.empty());
    EXPECT_FALSE(desktop.steps.contains(givenBack));
}

} // namespace
