// SPDX-License-Identifier: MIT
#include "Platform/TableViewFixture.h"

#include <QAccessible>

#include <gmock/gmock.h>

using namespace quor::platform;
using quor::test::TableViewTest;

namespace {

struct Told {
    QAccessible::Event event;
    QString name;
    bool operator==(const Told&) const = default;
};

std::vector<Told>& told()
{
    static std::vector<Told> events;
    return events;
}

class TableViewAccessibleTest : public TableViewTest {
protected:
    TableViewAccessibleTest()
    {
        QAccessible::installUpdateHandler([](QAccessibleEvent* event) {
            if (QAccessibleInterface* about = event->accessibleInterface())
                told().push_back({event->type(), about->text(QAccessible::Name)});
        });
    }
    ~TableViewAccessibleTest() override
    {
        QAccessible::installUpdateHandler(nullptr);
        told().clear();
    }
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
    EXPECT_EQ(far->role(), QAccessible::ListItem);
    EXPECT_TRUE(far->state().selected && far->state().focused && far->state().offscreen);
    EXPECT_EQ(far->childCount(), 0) << "no widgets";
    EXPECT_EQ(list()->child(900'000), far);
    EXPECT_EQ(list()->indexOfChild(far), 900'000);
    EXPECT_EQ(far->parent(), list());
    EXPECT_EQ(list()->child(1'000'000), nullptr);

    QAccessibleInterface* title = list()->child(1);
    EXPECT_FALSE(title->state().selectable || title->state().offscreen || title->state().selected);
    const QPoint middle = title->rect().center();
    EXPECT_EQ(list()->childAt(middle.x(), middle.y()), title);
    EXPECT_TRUE(title->actionInterface()->actionNames().isEmpty());
    EXPECT_LE(table.viewport()->findChildren<TableRowView*>().size(), 11) << "asking makes no widgets";
}

TEST_F(TableViewAccessibleTest, TheWidgetsOfARowAreFoundBothWays)
{
    show(5);
    QAccessibleInterface* row = list()->child(2);
    QAccessibleInterface* content = row->child(0);
    ASSERT_NE(content, nullptr);
    EXPECT_EQ(content->parent(), row);
    EXPECT_EQ(row->indexOfChild(content), 0);
    ASSERT_EQ(content->childCount(), 1);
    EXPECT_EQ(content->child(0)->text(QAccessible::Name), QStringLiteral("Row 2"));
}

TEST_F(TableViewAccessibleTest, WalkingIsAnnouncedAlsoWhileAnotherWidgetHasTheKeyboard)
{
    if (!QAccessible::isActive())
        GTEST_SKIP() << "Qt tells of changes only on a desktop whose accessibility is on";
    show(5);
    QLineEdit elsewhere;
    elsewhere.show();
    elsewhere.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&elsewhere));
    told().clear();
    table.walk(TableViewStep::down);
    table.walk(TableViewStep::down);
    EXPECT_THAT(told(), testing::Contains(Told{QAccessible::Focus, QStringLiteral("Row 1")}));
    EXPECT_THAT(told(), testing::Contains(Told{QAccessible::Selection, QStringLiteral("Row 0")}).Times(2))
        << "selected, then not";
    told().clear();
    table.selectRowIndexes(TableViewRowSet(4), false);
    EXPECT_THAT(told(), testing::Contains(Told{QAccessible::Selection, QStringLiteral("Row 4")}));
    EXPECT_THAT(told(), testing::Not(testing::Contains(Told{QAccessible::Focus, QStringLiteral("Row 4")})))
        << "code that selects does not take the user's attention";
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
