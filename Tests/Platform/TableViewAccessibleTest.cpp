// SPDX-License-Identifier: MIT
#include "Platform/TableViewFixture.h"

#include <QAccessible>

using namespace quor::platform;
using quor::test::TableViewTest;

namespace {

class TableViewAccessibleTest : public TableViewTest {
protected:
    QAccessibleInterface* list() { return QAccessible::queryAccessibleInterface(&table); }
};

TEST_F(TableViewAccessibleTest, EveryRowIsThereWithTextAndState)
{
    rows.barred = {1};
    show(1'000'000);
    ASSERT_EQ(list()->role(), QAccessible::List);
    ASSERT_EQ(list()->childCount(), 1'000'000);
    table.selectRowIndexes(TableViewRowSet(900'000), false);
    QAccessibleInterface* far = list()->child(900'000);
    EXPECT_EQ(far->text(QAccessible::Name), QStringLiteral("Row 900000"));
    EXPECT_TRUE(far->state().selected && far->state().focused && far->state().offscreen);
    EXPECT_EQ(far->childCount(), 0) << "no widgets";
    EXPECT_EQ(list()->indexOfChild(far), 900'000);
    EXPECT_EQ(far->parent(), list());
    EXPECT_EQ(list()->child(1'000'000), nullptr);

    QAccessibleInterface* title = list()->child(1);
    EXPECT_FALSE(title->state().selectable || title->state().offscreen || title->state().selected);
    const QPoint middle = title->rect().center();
    EXPECT_EQ(list()->childAt(middle.x(), middle.y()), title);
    EXPECT_TRUE(title->actionInterface()->actionNames().isEmpty());
    ASSERT_NE(title->child(0), nullptr);
    EXPECT_EQ(title->child(0)->parent(), title);
    EXPECT_EQ(title->child(0)->child(0)->text(QAccessible::Name), QStringLiteral("Row 1"));
    EXPECT_LE(table.viewport()->findChildren<TableRowView*>().size(), 11) << "asking makes no widgets";
}

TEST_F(TableViewAccessibleTest, ScreenReadersCanSelectAndPress)
{
    rows.barred = {1};
    show(5);
    QAccessibleTableInterface* cells = list()->tableInterface();
    ASSERT_NE(cells, nullptr);
    EXPECT_TRUE(cells->selectRow(3));
    EXPECT_FALSE(cells->selectRow(1));
    EXPECT_EQ(cells->selectedRows(), QList<int>{3});
    list()->child(3)->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(rows.clicks, std::vector{3});
    EXPECT_TRUE(cells->unselectRow(3));
    rows.count_ = 2;
    table.reloadData();
    EXPECT_EQ(list()->childCount(), 2);
    EXPECT_EQ(cells->cellAt(3, 0), nullptr);
}

} // namespace
