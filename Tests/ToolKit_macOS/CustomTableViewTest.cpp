// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/CustomTableView.h"
#include "Platform/TableViewFixture.h"
#include "Support/WaitFor.h"

#include <QContextMenuEvent>
#include <QScrollBar>

#include <gmock/gmock.h>

using namespace quor::toolkit;
using quor::platform::TableViewRowSet;
using quor::test::LabelRows;
using quor::test::waitFor;

namespace {

struct Reports final : CustomTableViewKeyDelegate {
    void tableViewDidPressEnter(CustomTableView&, int row) override { told.emplace_back('e', row); }
    void tableViewDidPressSpace(CustomTableView&, int row) override { told.emplace_back('s', row); }
    void tableViewDidMoveLeft(CustomTableView&, int row) override { told.emplace_back('l', row); }
    void tableViewDidMoveRight(CustomTableView&, int row) override { told.emplace_back('r', row); }
    void tableViewDidDoubleClick(CustomTableView&, int row) override { told.emplace_back('d', row); }
    std::vector<std::pair<char, int>> told;
};

class CustomTableViewTest : public testing::Test {
protected:
    CustomTableViewTest()
    {
        table.setFrameShape(QFrame::NoFrame);
        table.setDataSource(&rows);
        table.setDelegate(&rows);
        table.setGeometry(0, 0, 200, 200);
        table.show();
        table.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&table));
        table.reloadData();
    }
    void rightClick(const QPoint& point)
    {
        QContextMenuEvent event(QContextMenuEvent::Mouse, point, table.viewport()->mapToGlobal(point));
        QApplication::sendEvent(table.viewport(), &event);
    }
    QPoint middleOf(int row) const { return table.viewportRectOfRow(row).center(); }

    LabelRows rows{100};
    CustomTableView table;
};

TEST_F(CustomTableViewTest, ReportsKeysAndDoubleClicksWithTheSelectedRow)
{
    EXPECT_TRUE(QTest::qWaitForWindowActive(&table));
    QTest::keyClick(&table, Qt::Key_Space);
    {
        Reports reports;
        table.setKeyDelegate(&reports);
        QTest::keyClick(&table, Qt::Key_Return);
        QTest::keyClick(&table, Qt::Key_Down);
        for (const Qt::Key key : {Qt::Key_Enter, Qt::Key_Space, Qt::Key_Left, Qt::Key_Right})
            QTest::keyClick(&table, key);
        QTest::mouseDClick(table.viewport(), Qt::LeftButton, {}, middleOf(3));
        using Told = std::pair<char, int>;
        EXPECT_THAT(reports.told,
            testing::ElementsAre(
                Told('e', -1), Told('e', 0), Told('s', 0), Told('l', 0), Told('r', 0), Told('d', 3)));
    }
    EXPECT_EQ(table.keyDelegate(), nullptr) << "held weakly";
    const int before = table.selectedRow();
    QTest::keyClick(&table, Qt::Key_Space);
    QTest::keyClick(&table, Qt::Key_Left);
    EXPECT_EQ(table.selectedRow(), before);
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
    QTest::mouseClick(table.viewport(), Qt::LeftButton, Qt::ControlModifier, middleOf(7));
    EXPECT_TRUE(menu.isVisible());
    EXPECT_EQ(table.selectedRowIndexes(), TableViewRowSet(7));
    menu.hide();

    rows.count_ = 2;
    table.reloadData();
    rightClick({50, 150});
    EXPECT_EQ(table.rowForLastMenu(), -1);
    EXPECT_TRUE(table.selectedRowIndexes().isEmpty()) << "no row, none selected";
    menu.hide();
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
    QTest::keyClick(&table, Qt::Key_End);
    EXPECT_EQ(bar->value(), 1800) << "a key takes over";
}

} // namespace
