// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/CustomTableView.h"
#include "Platform/TableViewFixture.h"
#include "Support/WaitFor.h"

#include <QContextMenuEvent>
#include <QScrollBar>
#include <QTimer>

using namespace quor::toolkit;
using quor::platform::TableViewRowSet;
using quor::test::waitFor;

namespace {

struct Reports final : CustomTableViewKeyDelegate {
    void tableViewDidPressEnter(CustomTableView&, int row) override { calls.emplace_back('e', row); }
    void tableViewDidPressSpace(CustomTableView&, int row) override { calls.emplace_back('s', row); }
    void tableViewDidMoveLeft(CustomTableView&, int row) override { calls.emplace_back('l', row); }
    void tableViewDidMoveRight(CustomTableView&, int row) override { calls.emplace_back('r', row); }
    void tableViewDidDoubleClick(CustomTableView&, int row) override { calls.emplace_back('d', row); }
    std::vector<std::pair<char, int>> calls;
};

class CustomTableViewTest : public quor::test::TableFixture<CustomTableView> {
protected:
    CustomTableViewTest() { show(100); }
    void rightClick(const QPoint& point)
    {
        QContextMenuEvent event(QContextMenuEvent::Mouse, point, table.viewport()->mapToGlobal(point));
        QApplication::sendEvent(table.viewport(), &event);
    }
    QPoint middleOf(int row) const { return table.viewportRectOfRow(row).center(); }
};

TEST_F(CustomTableViewTest, ReportsKeysAndDoubleClicksWithTheSelectedRow)
{
    {
        Reports reports;
        table.setKeyDelegate(&reports);
        press(Qt::Key_Return);
        press(Qt::Key_Down);
        for (const Qt::Key key : {Qt::Key_Enter, Qt::Key_Space, Qt::Key_Left, Qt::Key_Right})
            press(key);
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, middleOf(3));
        EXPECT_EQ(reports.calls,
            (decltype(reports.calls){{'e', -1}, {'e', 0}, {'s', 0}, {'l', 0}, {'r', 0}, {'d', 3}}));
    }
    EXPECT_EQ(table.keyDelegate(), nullptr) << "held weakly";
    press(Qt::Key_Space);
}

TEST_F(CustomTableViewTest, TheContextMenuSelectsItsRowAndRemembersItForItsAction)
{
    QMenu menu;
    menu.addAction(QStringLiteral("Open"));
    table.setMenu(&menu);
    table.selectRow(2);
    rightClick(middleOf(5));
    EXPECT_TRUE(menu.isVisible());
    EXPECT_EQ(table.selectedRow(), 5);
    table.selectRow(1);
    EXPECT_EQ(table.menuRow(), 5);
    menu.hide();
    EXPECT_EQ(table.menuRow(), 5) << "its action comes only now";
    EXPECT_TRUE(waitFor([&] { return !table.rowForLastMenu(); }));
    EXPECT_EQ(table.menuRow(), 1);
    table.setAllowsMultipleSelection(true);
    table.selectRow(4, true);
    rightClick(middleOf(4));
    EXPECT_EQ(table.selectedRowIndexes().count(), 2) << "one of those selected";
    menu.hide();
    click(7, Qt::ControlModifier);
    EXPECT_TRUE(menu.isVisible());
    EXPECT_EQ(table.selectedRowIndexes(), TableViewRowSet(7));
    menu.hide();
    rows.count_ = 2;
    table.reloadData();
    rightClick({50, 150});
    EXPECT_EQ(table.rowForLastMenu(), -1);
    EXPECT_TRUE(table.selectedRowIndexes().isEmpty()) << "no row, none selected";
}

TEST_F(CustomTableViewTest, TheRowIsForgottenWithoutAMenu)
{
    rightClick(middleOf(5));
    QMenu ofAncestor;
    ofAncestor.addAction(QStringLiteral("Open"));
    ofAncestor.popup({});
    int rowOfAction = -1;
    QTimer::singleShot(400, &ofAncestor, [&] { rowOfAction = table.menuRow(), ofAncestor.hide(); });
    EXPECT_TRUE(waitFor([&] { return !ofAncestor.isVisible() && !table.rowForLastMenu(); }));
    EXPECT_EQ(rowOfAction, 5) << "for the menu of an ancestor";
    for (const bool isDestroyed : {false, true}) {
        auto menu = std::make_unique<QMenu>();
        menu->addAction(QStringLiteral("Open"));
        table.setMenu(menu.get());
        rightClick(middleOf(5));
        EXPECT_EQ(table.rowForLastMenu(), 5);
        if (isDestroyed)
            menu.reset();
        else
            table.setMenu(nullptr);
        EXPECT_TRUE(waitFor([&] { return !table.rowForLastMenu(); }));
    }
}

TEST_F(CustomTableViewTest, ScrollsARowToTheTopAsFarAsTheContentGoes)
{
    const QScrollBar* bar = table.verticalScrollBar();
    table.scrollRowToTop(20);
    EXPECT_LT(bar->value(), 400) << "not at once";
    EXPECT_TRUE(waitFor([&] { return bar->value() == 400; }));
    table.scrollRowToTop(99);
    EXPECT_TRUE(waitFor([&] { return bar->value() == 1800; }));
    table.scrollRowToTop(100);
    table.scrollRowToTop(0);
    EXPECT_TRUE(waitFor([&] { return bar->value() < 1800; }));
    press(Qt::Key_End);
    EXPECT_EQ(bar->value(), 1800) << "a key takes over";
}

} // namespace
