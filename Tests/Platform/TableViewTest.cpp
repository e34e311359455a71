// SPDX-License-Identifier: MIT
#include "Platform/TableViewFixture.h"
#include "Support/WaitFor.h"

#include <QScrollBar>
#include <QWheelEvent>

#include <gmock/gmock.h>

using namespace quor::platform;
using quor::test::LabelRows;
using quor::test::TableViewTest;
using testing::ElementsAre;

namespace {

TEST_F(TableViewTest, AMillionRowsTakeTheWidgetsOfAScreenful)
{
    show(1'000'000);
    EXPECT_EQ(table.contentHeight(), 20'000'000);
    for (const int place : {19'999'800, 5'000'003, 0, 123, 20'000'000})
        table.verticalScrollBar()->setValue(place);
    EXPECT_EQ(shownText(999'999), QStringLiteral("Row 999999"));
    EXPECT_LE(rows.labelsMade, 11) << "one more while the edges cut a row each";
    rows.heightsAsked = 0;
    table.setUniformRowHeight(20);
    table.reloadData();
    EXPECT_EQ(rows.heightsAsked, 0);
}

TEST_F(TableViewTest, RowsLieWhereTheirHeightsPutThem)
{
    rows.heights = {30, 0, 10};
    table.setIntercellSpacing(6);
    table.setContentInsets({10, 4, 5, 8});
    show(6);
    EXPECT_EQ(table.contentHeight(), 128);
    EXPECT_EQ(table.rowViewAtRow(2)->geometry(), QRect(10, 46, 185, 16));
    EXPECT_EQ(table.viewAtRow(2)->geometry(), QRect(0, 3, 185, 10)) << "half the spacing above";
    table.setLayoutDirection(Qt::RightToLeft);
    EXPECT_EQ(table.rowViewAtRow(2)->geometry().left(), 5) << "insets change sides";
    rows.heights = {30, 100, 10};
    table.noteHeightOfRowsChanged(1, 1);
    EXPECT_EQ(table.rectOfRow(2).top(), 146);
    EXPECT_EQ(table.rectOfRow(4).height(), 6) << "not asked again";
    for (const auto& [row, end] : {std::pair(5, table.verticalScrollBar()->maximum()), {0, 0}}) {
        table.scrollRowToVisible(row);
        EXPECT_EQ(table.verticalScrollBar()->value(), end) << "with the insets";
    }
}

TEST_F(TableViewTest, AReloadKeepsScrollWidgetsAndValidSelection)
{
    show(100);
    table.verticalScrollBar()->setValue(400);
    table.selectRowIndexes(TableViewRowSet(25), false);
    const QWidget* before = table.viewAtRow(25);
    rows.texts[25] = QStringLiteral("Changed");
    table.reloadData();
    EXPECT_EQ(table.viewAtRow(25), before);
    EXPECT_EQ(shownText(25), QStringLiteral("Changed"));
    EXPECT_EQ(table.verticalScrollBar()->value(), 400);
    EXPECT_EQ(table.selectedRow(), 25);
    rows.barred = {25};
    table.reloadData();
    EXPECT_EQ(table.selectedRow(), -1) << "must not be selected any more";
    rows.count_ = 12;
    table.reloadData();
    EXPECT_EQ(table.verticalScrollBar()->value(), 40);
}

TEST_F(TableViewTest, TheFieldWithTheFocusKeepsItAndItsCaretWhereverItsRowGoes)
{
    rows.searchField = new QLineEdit;
    rows.searchRow = 0;
    show(100);
    rows.searchField->setFocus();
    QTest::keyClicks(rows.searchField, QStringLiteral("task"));
    rows.searchField->setCursorPosition(2);
    const auto isUntouched = [&] {
        return rows.searchField->hasFocus() && rows.searchField->cursorPosition() == 2
            && !rows.searchField->hasSelectedText() && rows.searchField->isVisible();
    };
    rows.searchRow = 3;
    table.reloadData();
    EXPECT_TRUE(isUntouched()) << "in another row";
    EXPECT_EQ(table.rowForView(rows.searchField), 3);
    table.verticalScrollBar()->setValue(1000);
    EXPECT_TRUE(isUntouched()) << "scrolled off";
    EXPECT_TRUE(table.walk(TableViewStep::down));
    EXPECT_TRUE(isUntouched()) << "walking leaves the keyboard where it is";
    rows.searchRow = -1;
    table.reloadData();
    EXPECT_TRUE(table.hasFocus()) << "rather than some other widget";
}

TEST_F(TableViewTest, KeysWalkAndScrollTheSelectionIntoView)
{
    show(100);
    rows.barred = {0, 99};
    const std::pair<Qt::Key, int> presses[] = {{Qt::Key_Down, 1}, {Qt::Key_Down, 2}, {Qt::Key_Up, 1},
        {Qt::Key_PageDown, 10}, {Qt::Key_End, 98}, {Qt::Key_PageUp, 89}, {Qt::Key_Home, 1}, {Qt::Key_Up, 1}};
    for (const auto& [key, row] : presses) {
        press(key);
        EXPECT_EQ(table.selectedRow(), row);
        EXPECT_TRUE(table.visibleRect().contains(table.rectOfRow(row)));
    }
    EXPECT_EQ(table.verticalScrollBar()->value(), 0) << "the end of the walk shows what lies beyond";
    table.setAllowsMultipleSelection(true);
    press(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(table.selectedRowIndexes(), TableViewRowSet(1, 2));
    press(Qt::Key_A, Qt::ControlModifier);
    EXPECT_EQ(table.selectedRowIndexes(), TableViewRowSet(1, 98));
}

TEST_F(TableViewTest, ClicksAreReportedForAnyRowAndSelectThoseThatTheUserMaySelect)
{
    show(10);
    rows.barred = {4};
    table.setAllowsMultipleSelection(true);
    click(2);
    click(5, Qt::ShiftModifier);
    click(4);
    using Run = TableViewRowSet::Run;
    EXPECT_THAT(table.selectedRowIndexes().runs(), ElementsAre(Run{2, 3}, Run{5, 5}));
    EXPECT_EQ(rows.clicks, (std::vector{2, 5, 4}));
}

TEST_F(TableViewTest, TypingSelectsTheRowThatBeginsSo)
{
    rows.texts
        = {{4, QStringLiteral("quarry")}, {5, QStringLiteral("Quart")}, {7, QStringLiteral("quarter")}};
    rows.barred = {4};
    show(10);
    QTest::keyClicks(&table, QStringLiteral("quar"));
    EXPECT_EQ(table.selectedRow(), 5);
    press(Qt::Key_Shift); // has no text
    QTest::keyClicks(&table, QStringLiteral("te x"));
    EXPECT_EQ(table.selectedRow(), 7);
}

TEST_F(TableViewTest, OnlyAMovedPointerHovers)
{
    show(100);
    movePointer(50, 50);
    EXPECT_EQ(rows.hovers.back(), 2);
    rows.hovers.clear();
    table.verticalScrollBar()->setValue(100);
    rows.heights = {200};
    table.reloadData();
    press(Qt::Key_End);
    table.resize(200, 100);
    movePointer(50, 50); // where it is already
    EXPECT_THAT(rows.hovers, ElementsAre());
    movePointer(50, 51);
    movePointer(50, 150);
    EXPECT_THAT(rows.hovers, ElementsAre(99, LabelRows::left));
}

TEST_F(TableViewTest, WheelsAndTouchpadsScrollByPixelsOrLines)
{
    show(1000);
    const auto turn = [&](QPoint pixels, QPoint angle) {
        QWheelEvent event({50, 50}, table.mapToGlobal(QPointF(50, 50)), pixels, angle, Qt::NoButton,
            Qt::NoModifier, Qt::NoScrollPhase, false);
        QApplication::sendEvent(table.viewport(), &event);
        return table.verticalScrollBar()->value();
    };
    EXPECT_EQ(turn({0, -7}, {0, -120}), 7) << "pixels win";
    turn({0, 7}, {});
    const int notch = QApplication::wheelScrollLines() * table.verticalScrollBar()->singleStep();
    for (int part = 0; part < 120; ++part)
        turn({}, {0, -1});
    EXPECT_NEAR(table.verticalScrollBar()->value(), notch, 1) << "parts add up";
    EXPECT_THAT(rows.hovers, ElementsAre()) << "the pointer was not moved";
}

TEST_F(TableViewTest, OutlivesItsRows)
{
    auto shortLived = std::make_unique<LabelRows>();
    shortLived->count_ = 30;
    table.setDataSource(shortLived.get());
    table.setDelegate(shortLived.get());
    table.resize(200, 200);
    table.reloadData();
    shortLived.reset();
    table.verticalScrollBar()->setValue(100);
    press(Qt::Key_Down);
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {}, {50, 50});
    table.reloadData();
    EXPECT_EQ(table.numberOfRows(), 0);
}

} // namespace
