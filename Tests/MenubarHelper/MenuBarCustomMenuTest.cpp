// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/MenuBarCustomMenu.h"

#include "Support/TestClock.h"
#include "Support/WaitFor.h"
#include "View/MenuBarCustomMenu/Rows/MenuAdjustTimerView.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScreen>
#include <QScrollBar>
#include <QTest>

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using namespace quor;
using namespace quor::helper;
using Action = MenuEntry::Entry::Action;
using testing::ElementsAre;

namespace {

MenuEntry entry(const QString& label, const Action& action = {Action::Start{u"task"_s}}, bool isTitle = false)
{
    MenuEntry::Entry entry;
    entry.label = label;
    entry.isTitle = isTitle;
    entry.action = action;
    return {entry};
}
const MenuEntry search{MenuEntry::Search{}};
const MenuEntry separator{MenuEntry::Separator{}};
const MenuEntry running = entry(u"Running"_s, {Action::Stop{u"run"_s}});

class MenuBarCustomMenuTest : public testing::Test {
protected:
    MenuBarCustomMenuTest()
    {
        menu->resizedHandler = [this] { window.resize(menu->size()); };
        menu->entryClicked = [this](const MenuEntry& row) { chosen.push_back(row); };
        menu->adjustStartHandler = [this](const QString& task, int by) { moved.emplace_back(task, by); };
        menu->adjustedStopHandler = menu->adjustStartHandler;
        menu->searchTermChangedHandler = [this](const QString& term) { terms.push_back(term); };
    }
    static void setFontSize(int pixels)
    {
        QFont font(u"DejaVu Sans"_s);
        font.setPixelSize(pixels);
        QApplication::setFont(font);
    }
    void show(const std::vector<MenuEntry>& rows)
    {
        reload(rows);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }
    void reload(const std::vector<MenuEntry>& rows)
    {
        menu->dataList = rows;
        menu->reload();
    }
    void press(Qt::Key key) { QTest::keyClick(window.focusWidget(), key); }
    void type(const char* text) { QTest::keyClicks(window.focusWidget(), QLatin1String(text)); }
    QPoint centre(int row) { return table.viewport()->mapTo(&window, table.viewportRectOfRow(row).center()); }
    void point(int row) { QTest::mouseMove(window.windowHandle(), centre(row)); }
    void mouse(void (*event)(QWindow*, Qt::MouseButton, Qt::KeyboardModifiers, QPoint, int), const QPoint& at)
    {
        event(window.windowHandle(), Qt::LeftButton, {}, at, -1);
    }
    void click(const QPoint& at) { mouse(&QTest::mouseClick, at); }
    void compose(const QString& preedit, const QString& commit = {})
    {
        QInputMethodEvent event(preedit, {});
        event.setCommitString(commit);
        QApplication::sendEvent(window.focusWidget(), &event);
    }

    /// Sets the application's font before any widget is created, and restores it.
    struct Font {
        Font() { setFontSize(13); }
        ~Font() { QApplication::setFont(before); }
        QFont before = QApplication::font();
    };
    struct Window : QWidget {
        void keyPressEvent(QKeyEvent* event) override { escapes += event->key() == Qt::Key_Escape; }
        int escapes = 0;
    };

    Font font;
    test::TestClock clock;
    Window window;
    QPointer<MenuBarCustomMenu> menu = new MenuBarCustomMenu(true, 300, clock, &window);
    toolkit::CustomTableView& table = menu->tableView();
    MenuSearchView& field = menu->searchView();
    std::vector<MenuEntry> chosen;
    std::vector<std::pair<QString, int>> moved;
    std::vector<QString> terms;
};

TEST_F(MenuBarCustomMenuTest, IsAsWideAsItsWidestRowUpToALimit)
{
    const MenuEntry longer = entry(u"A label that takes more than the least width"_s);
    const int adjusting = MenuAdjustTimerView().sizeHint().width() + 52;
    const std::pair<std::vector<MenuEntry>, int> cases[]
        = {{{}, 300}, {{search, entry(u"A"_s), separator}, 300}, {{longer, entry(u"A"_s)}, 339},
            {{entry(u"A"_s), longer, entry(u"B"_s)}, 339},
            {{MenuEntry{MenuEntry::AdjustStart{}}, entry(u"A"_s)}, adjusting},
            {{entry(QString(10'000, u'w'))}, 500}};
    for (const auto& [rows, width] : cases) {
        reload(rows);
        EXPECT_EQ(menu->width(), width);
    }
}

TEST_F(MenuBarCustomMenuTest, IsAsHighAsItsRowsUpToTheScreen)
{
    reload({search, entry(u"A"_s), separator});
    EXPECT_EQ(menu->height(), 83);
    show(std::vector<MenuEntry>(100'000, entry(u"A"_s)));
    EXPECT_EQ(menu->height(), qRound(0.9 * QGuiApplication::primaryScreen()->availableGeometry().height()));
    press(Qt::Key_End);
    EXPECT_EQ(table.rowAtPoint(QPoint(20, menu->height() - 12)), 99'999);

    reload({search, entry(u"A"_s)});
    EXPECT_EQ(menu->height(), 67);
    setFontSize(26);
    EXPECT_TRUE(test::waitFor([&] { return menu->height() == 97; })) << menu->height();
}

TEST_F(MenuBarCustomMenuTest, ThePointerSelectsWhatMayBe)
{
    show({search, entry(u"Title"_s, {}, true), entry(u"A"_s), separator, entry(u"B"_s)});
    for (const auto& [row, selected] : {std::pair(2, 2), {1, -1}, {4, 4}, {3, -1}, {2, 2}, {0, -1}}) {
        point(row);
        EXPECT_EQ(table.selectedRow(), selected);
    }
    // Rows that come under the resting pointer take the selection neither from another row nor from none.
    point(4);
    const QPoint pointer = centre(4);
    std::vector rows(1'000, entry(u"A"_s));
    rows[0] = search;
    rows[1] = MenuEntry{MenuEntry::StopPast{}};
    reload(rows);
    EXPECT_EQ(table.selectedRow(), 4);
    EXPECT_NE(table.rowAtPoint(table.viewport()->mapFrom(&window, pointer)), 4);
    press(Qt::Key_Down);
    QWheelEvent wheel(pointer, window.mapToGlobal(pointer), {0, -100}, {}, {}, {}, Qt::NoScrollPhase, false);
    QApplication::sendEvent(table.viewport(), &wheel);
    ASSERT_EQ(table.verticalScrollBar()->value(), 100);
    reload(rows);
    EXPECT_EQ(table.selectedRow(), 5) << "as the keys have left it";
    type("x");
    ASSERT_TRUE(test::waitFor([&] { return !terms.empty(); }));
    reload(rows);
    EXPECT_EQ(table.selectedRow(), -1);
    EXPECT_TRUE(field.hasFocus());
}

TEST_F(MenuBarCustomMenuTest, ClicksLeaveThroughTheHandlers)
{
    const MenuEntry title = entry(u"Title"_s, {}, true);
    show({search, title, running, MenuEntry{MenuEntry::AdjustStart{u"adjust"_s}},
        MenuEntry{MenuEntry::StopPast{u"stop"_s}}});
    click(centre(1));
    click(QPoint(8, centre(2).y())); // beside the cell
    EXPECT_THAT(chosen, ElementsAre(title, running));
    for (const int row : {3, 4})
        for (MenuTimerButton* const button : qobject_cast<MenuTimerRow*>(table.viewAtRow(row))->buttons())
            if (button->tag() == -10 || button->tag() == 0)
                click(button->mapTo(&window, button->rect().center()));
    EXPECT_THAT(moved,
        ElementsAre(std::pair(u"adjust"_s, -10), std::pair(u"adjust"_s, 0), std::pair(u"stop"_s, -10)));
    EXPECT_TRUE(field.hasFocus());

    menu->entryClicked = [this](const MenuEntry&) { delete menu; };
    click(centre(2));
    EXPECT_FALSE(menu);
}

TEST_F(MenuBarCustomMenuTest, APressOnARowThatIsReplacedComesToNothing)
{
    const MenuEntry adjust{MenuEntry::AdjustStart{u"a"_s}};
    show({entry(u"A"_s, {Action::Start{u"a"_s}}), adjust});
    const auto replaced = [this](const QPoint& at) {
        mouse(&QTest::mousePress, at);
        reload({entry(u"B"_s, {Action::Start{u"b"_s}}), MenuEntry{MenuEntry::AdjustStart{u"b"_s}}});
        mouse(&QTest::mouseRelease, at);
    };
    replaced(centre(0));
    reload({entry(u"A"_s, {Action::Start{u"a"_s}}), adjust});
    const QWidget* button = qobject_cast<MenuTimerRow*>(table.viewAtRow(1))->buttons().front();
    replaced(button->mapTo(&window, button->rect().center()));

    reload({search, entry(u"A"_s)});
    mouse(&QTest::mousePress, centre(1));
    reload({search, search}); // no row shows the cell now
    mouse(&QTest::mouseRelease, centre(1));
    EXPECT_THAT(chosen, testing::IsEmpty());
    EXPECT_THAT(moved, testing::IsEmpty());
}

TEST_F(MenuBarCustomMenuTest, KeysWalkTheRowsWhileTheFieldEdits)
{
    const std::vector rows{
        entry(u"Above"_s), search, entry(u"T"_s, {}, true), entry(u"A"_s), separator, running};
    show(rows);
    EXPECT_TRUE(field.hasFocus());
    press(Qt::Key_Return);
    EXPECT_THAT(chosen, testing::IsEmpty());
    for (const auto& [key, row] : {std::pair(Qt::Key_Down, 3), {Qt::Key_Left, 3}, {Qt::Key_Down, 5},
             {Qt::Key_Right, 5}, {Qt::Key_Down, 5}, {Qt::Key_Home, 0}, {Qt::Key_PageDown, 5}, {Qt::Key_Up, 3},
             {Qt::Key_Return, 3}}) {
        press(key);
        EXPECT_EQ(table.selectedRow(), row) << key;
    }
    EXPECT_THAT(moved, ElementsAre(std::pair(u"run"_s, 1)));
    EXPECT_THAT(chosen, ElementsAre(rows[3]));

    type("a b");
    press(Qt::Key_Home);
    press(Qt::Key_Right);
    EXPECT_EQ(field.text(), u"a b"_s);
    EXPECT_EQ(field.cursorPosition(), 1);
    EXPECT_EQ(table.selectedRow(), 3);
    EXPECT_EQ(window.escapes, 0);
    press(Qt::Key_Escape);
    table.setFocus();
    press(Qt::Key_Escape);
    EXPECT_EQ(window.escapes, 2) << "the window decides what Escape does";
}

TEST_F(MenuBarCustomMenuTest, AReloadGivesTheTableTheKeysAndLosesNoText)
{
    const std::vector rows{search, entry(u"A"_s), running};
    show(rows);
    press(Qt::Key_Down);
    press(Qt::Key_Down);
    reload(rows);
    EXPECT_TRUE(table.hasFocus());
    EXPECT_EQ(table.selectedRow(), 2);
    press(Qt::Key_Left);
    press(Qt::Key_Space);
    EXPECT_THAT(moved, ElementsAre(std::pair(u"run"_s, -1)));
    EXPECT_THAT(chosen, ElementsAre(running));

    type("d");
    EXPECT_TRUE(field.hasFocus());
    type("e");
    press(Qt::Key_Left);
    reload(rows);
    EXPECT_TRUE(table.hasFocus());
    type(" x"); // a space in the middle of a text chooses nothing
    EXPECT_EQ(field.text(), u"d xe"_s);
    EXPECT_EQ(chosen.size(), 1U);

    table.setFocus();
    compose(u"k"_s);
    EXPECT_TRUE(table.hasFocus());
    compose({}, u"か"_s);
    EXPECT_TRUE(field.hasFocus());
    EXPECT_TRUE(field.text().endsWith(u'か'));

    table.selectRow(9); // a row that does not exist
    reload({entry(u"B"_s), entry(u"C"_s)});
    EXPECT_TRUE(table.hasFocus());
    type("c");
    EXPECT_EQ(table.selectedRow(), 1);
    reload({entry(u"B"_s)});
    EXPECT_EQ(table.selectedRow(), -1);
    reload({search});
    EXPECT_TRUE(field.hasFocus());
    EXPECT_TRUE(field.text().endsWith(u'か'));

    reload(rows);
    press(Qt::Key_Down);
    std::vector longer(1'000, entry(u"A"_s));
    longer.back() = search;
    reload(longer); // takes the keyboard from the field, which is out of sight now
    EXPECT_TRUE(table.hasFocus());
    type(" y");
    EXPECT_TRUE(field.text().endsWith(u" y"_s));
    EXPECT_EQ(chosen.size(), 1U);
}

TEST_F(MenuBarCustomMenuTest, ACompositionIsLeftAlone)
{
    show({search, entry(u"A"_s)});
    press(Qt::Key_Down);
    compose(u"か"_s);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Up, Qt::Key_Escape})
        press(key);
    reload({search, entry(u"B"_s)});
    EXPECT_TRUE(field.hasFocus());
    EXPECT_THAT(chosen, testing::IsEmpty());
    EXPECT_EQ(window.escapes, 0);
    compose({}, u"蚊"_s);
    EXPECT_EQ(field.text(), u"蚊"_s);
}

TEST_F(MenuBarCustomMenuTest, AFieldOutOfSightKeepsWhatIsTyped)
{
    std::vector rows(10'000, entry(u"A"_s));
    rows.front() = search;
    show(rows);
    type("AbC");
    ASSERT_TRUE(test::waitFor([&] { return !terms.empty(); }));
    EXPECT_THAT(terms, ElementsAre(u"abc"_s));
    press(Qt::Key_Left);
    table.verticalScrollBar()->setValue(50'000);
    reload(rows);
    type("d");
    EXPECT_EQ(field.text(), u"AbdC"_s);
    press(Qt::Key_Down);
    ASSERT_TRUE(test::waitFor([&] { return terms.size() > 1; }));
    EXPECT_EQ(table.selectedRow(), -1); // a search clears the selection

    type("e");
    menu->cleanup();
    menu->reload();
    EXPECT_FALSE(test::waitFor([&] { return terms.size() > 2; }, std::chrono::milliseconds(300)));
}

TEST_F(MenuBarCustomMenuTest, TheFieldIsInTheLastSearchRowOnTheScreen)
{
    const auto rowsWithSecondSearchAt = [](std::size_t row) {
        std::vector rows(1'000, entry(u"A"_s));
        rows.front() = rows[row] = search;
        return rows;
    };
    show(rowsWithSecondSearchAt(3));
    EXPECT_EQ(table.rowForView(&field), 3);
    EXPECT_TRUE(field.hasFocus());
    press(Qt::Key_Down);
    EXPECT_EQ(table.selectedRow(), 4);
    type("x");
    ASSERT_TRUE(test::waitFor([&] { return !terms.empty(); }));
    const std::vector far = rowsWithSecondSearchAt(900);
    const auto isShownAt = [&](int row) {
        return table.rowForView(&field) == row && table.visibleRect().contains(table.rectOfRow(row))
            && field.isVisible() && field.hasFocus();
    };
    reload(far);
    EXPECT_TRUE(isShownAt(0));
    type("y");
    table.scrollRowToVisible(901);
    EXPECT_TRUE(isShownAt(900));
    type("z");
    table.verticalScrollBar()->setValue(0);
    EXPECT_TRUE(isShownAt(0));
    reload(far);
    EXPECT_TRUE(isShownAt(0));
    EXPECT_EQ(field.text(), u"xyz"_s);
}

TEST_F(MenuBarCustomMenuTest, RowsAreDescribedOnTheScreenAndOff)
{
    const MenuEntry adjust{MenuEntry::AdjustStart{u"run"_s, 1'700'000'000}};
    const MenuEntry stop{MenuEntry::StopPast{u"run"_s}};
    std::vector rows{running, search, adjust, stop};
    rows.resize(200, separator);
    rows.insert(rows.end(), {adjust, stop});
    show(rows);
    const auto describe = [&](int row) { return table.delegate()->describeRow(table, row); };
    EXPECT_EQ(describe(0).text, u"Running"_s);
    EXPECT_EQ(describe(0).isChecked, true);
    EXPECT_EQ(describe(1).text, u"Search"_s);
    EXPECT_EQ(describe(100).role, QAccessible::Separator);
    for (const int row : {2, 3}) {
        const QString shown = qobject_cast<MenuTimerRow*>(table.viewAtRow(row))->labelField().text();
        EXPECT_EQ(describe(row).text, shown);
        EXPECT_EQ(describe(198 + row).text, shown);
    }
    EXPECT_EQ(describe(9999).text, QString());
}

} // namespace
