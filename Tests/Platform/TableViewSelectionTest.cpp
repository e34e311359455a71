// SPDX-License-Identifier: MIT
#include "Platform/Views/Table/TableViewSelection.h"

#include <gmock/gmock.h>

#include <set>

using namespace quor::platform;
using testing::ElementsAre;

namespace {

/// A hundred rows, of which ten fit into the viewport.
class TableViewSelectionTest : public testing::Test {
protected:
    using Run = TableViewRowSet::Run;

    TableViewSelectionTest()
    {
        heights.setUniform(100, 20);
        selection.setNumberOfRows(100);
        selection.setAllowsMultiple(true);
        selection.shouldSelectRow = [this](int row) { return !barred.contains(row); };
        selection.changed = [this](const TableViewSelection::Change& change) {
            previousRows.push_back(change.previousRow);
        };
    }

    std::set<int> barred;
    TableViewRowHeights heights;
    const TableViewGeometry geometry{.heights = heights, .insets = {}, .visible = {0, 0, 200, 200}};
    TableViewSelection selection;
    std::vector<int> previousRows; // one for each change
};

TEST_F(TableViewSelectionTest, StepsOverBarredRowsAndStaysAtTheEnds)
{
    using enum TableViewStep;
    barred = {0, 2, 3, 50, 99};
    const struct {
        int from;
        TableViewStep step;
        int target;
    } cases[] = {{-1, down, 1}, {-1, up, 98}, {-1, pageDown, 1}, {-1, pageUp, 98}, {1, down, 4}, {4, up, 1},
        {1, up, -1}, {98, down, -1}, {1, pageDown, 10}, {41, pageDown, 51}, {95, pageDown, 98},
        {98, pageDown, -1}, {98, pageUp, 89}, {5, pageUp, 1}, {1, pageUp, -1}, {42, first, 1},
        {42, last, 98}};
    for (const auto& [from, step, target] : cases) {
        selection.select(from < 0 ? TableViewRowSet() : TableViewRowSet(from), false);
        EXPECT_EQ(selection.target(step, geometry), target) << "from " << from;
    }
    selection.setNumberOfRows(1);
    for (const TableViewStep step : {up, down, pageUp, pageDown, first, last})
        EXPECT_EQ(selection.target(step, geometry), -1) << "the only row is barred";
}

TEST_F(TableViewSelectionTest, ClicksSelectToggleAndExtend)
{
    constexpr auto shift = Qt::ShiftModifier;
    constexpr auto control = Qt::ControlModifier;
    barred = {4};
    const struct {
        int row;
        Qt::KeyboardModifiers modifiers;
        std::vector<Run> selected;
        int selectedRow;
    } clicks[]
        = {{2, {}, {{2, 2}}, 2}, {5, shift, {{2, 3}, {5, 5}}, 5}, {8, control, {{2, 3}, {5, 5}, {8, 8}}, 8},
            {3, control, {{2, 2}, {5, 5}, {8, 8}}, 8}, {4, {}, {{2, 2}, {5, 5}, {8, 8}}, 8},
            {6, shift, {{6, 8}}, 6}, {-1, shift, {{6, 8}}, 6}, {-1, {}, {}, -1}, {7, shift, {{7, 7}}, 7}};
    for (const auto& [row, modifiers, selected, selectedRow] : clicks) {
        selection.click(row, modifiers);
        EXPECT_EQ(selection.rows().runs(), selected) << "a click on " << row;
        EXPECT_EQ(selection.selectedRow(), selectedRow) << "a click on " << row;
    }
    selection.setAllowsEmpty(false);
    EXPECT_FALSE(selection.click(7, control) || selection.click(-1, {})) << "one row stays selected";
    selection.setAllowsMultiple(false);
    selection.click(9, shift);
    EXPECT_FALSE(selection.selectAll());
    EXPECT_THAT(selection.rows().runs(), ElementsAre(Run{9, 9}));
}

TEST_F(TableViewSelectionTest, StepsExtendFromTheAnchorBackAndForth)
{
    selection.click(9, {});
    const struct {
        int row;
        std::vector<Run> selected;
    } steps[] = {{8, {{8, 9}}}, {7, {{7, 9}}}, {8, {{8, 9}}}, {11, {{9, 11}}}};
    for (const auto& [row, selected] : steps) {
        EXPECT_TRUE(selection.moveTo(row, true));
        EXPECT_EQ(selection.rows().runs(), selected);
    }
    EXPECT_FALSE(selection.moveTo(11, true)) << "nothing has changed";
    EXPECT_TRUE(selection.moveTo(11, false));
    EXPECT_THAT(selection.rows().runs(), ElementsAre(Run{11, 11}));
    barred = {0, 99};
    selection.selectAll();
    EXPECT_THAT(selection.rows().runs(), ElementsAre(Run{1, 98}));
    EXPECT_EQ(selection.selectedRow(), 11);
    selection.select(TableViewRowSet(99), false);
    selection.selectAll();
    EXPECT_EQ(selection.selectedRow(), 1) << "the barred row is not selected any more";
}

TEST_F(TableViewSelectionTest, KeepsToTheRowsThatTheListHas)
{
    barred = {3};
    EXPECT_TRUE(selection.select({1, 5}, false)) << "the program may select a barred row";
    EXPECT_TRUE(selection.select({99, 200}, true));
    EXPECT_THAT(selection.rows().runs(), ElementsAre(Run{1, 5}, Run{99, 99}));
    EXPECT_FALSE(selection.select({100, 200}, true));
    selection.setNumberOfRows(5);
    EXPECT_TRUE(selection.dropInvalidRows());
    EXPECT_THAT(selection.rows().runs(), ElementsAre(Run{1, 2}, Run{4, 4}));
    EXPECT_EQ(selection.selectedRow(), 4);
    EXPECT_FALSE(selection.dropInvalidRows());
    EXPECT_TRUE(selection.deselect(4));
    EXPECT_EQ(selection.selectedRow(), 2);
    selection.setAllowsMultiple(false);
    selection.select({0, 4}, false);
    EXPECT_THAT(selection.rows().runs(), ElementsAre(Run{4, 4})) << "the last one";
    EXPECT_THAT(previousRows, ElementsAre(-1, 5, 99, 4, 2, 2));
}

} // namespace
