// SPDX-License-Identifier: MIT
#include "Platform/Views/Table/TableViewGeometry.h"
#include "Platform/Views/Table/TableViewRowSet.h"
#include "Platform/Views/Table/TableViewTypeSelect.h"

#include <gmock/gmock.h>

#include <climits>
#include <random>
#include <set>

using namespace quor::platform;
using namespace std::chrono_literals;

namespace {

TEST(TableViewRowHeights, HugeSumsStopInsteadOfTurningRound)
{
    TableViewRowHeights heights;
    heights.setVarying(3, [](int row) { return row == 0 ? -5 : INT_MAX; });
    EXPECT_EQ(heights.total(), TableViewRowHeights::limit);
    EXPECT_EQ(heights.rowAt(0), 1) << "a row without a height is nowhere";
    heights.setUniform(INT_MAX, 1000);
    EXPECT_EQ(heights.total(), TableViewRowHeights::limit);
    EXPECT_EQ(heights.rowAt(TableViewRowHeights::limit - 1), (TableViewRowHeights::limit - 1) / 1000);
    heights.setUniform(5, 0);
    EXPECT_EQ(heights.rowAt(0), -1);
}

TEST(TableViewGeometry, PlacesRowsWithinInsetsAndViewport)
{
    TableViewRowHeights heights;
    heights.setVarying(6, [](int row) {
        return std::vector{36, 0, 16}.at(static_cast<std::size_t>(row % 3));
    });
    TableViewGeometry geometry{
        .heights = heights, .insets = {10, 4, 5, 8}, .spacing = 6, .visible = {0, 20, 200, 60}};
    EXPECT_EQ(geometry.contentHeight(), 116);
    EXPECT_EQ(geometry.rectOfRow(2), QRect(10, 40, 185, 16));
    EXPECT_EQ(geometry.viewportRectOfRow(5), QRect(10, 72, 185, 16)) << "outside the viewport";
    EXPECT_TRUE(geometry.rectOfRow(6).isNull() && geometry.rectOfRow(-1).isNull());
    EXPECT_THAT(geometry.visibleRows(), testing::ElementsAre(0, 2, 3)) << "row 1 has no height";
    for (const auto& [y, row] : {std::pair(-1, -1), {0, 0}, {19, 0}, {20, 2}, {36, 3}, {59, 3}, {60, -1}})
        EXPECT_EQ(geometry.rowAtPoint({50, y}), row) << y;
    const std::pair<int, int> offsets[] = {{-1, 20}, {0, 0}, {2, 20}, {3, 32}, {4, 32}, {5, 56}, {6, 20}};
    for (const auto& [row, offset] : offsets)
        EXPECT_EQ(geometry.offsetShowingRow(row), offset) << row;
    geometry.visible.setHeight(10);
    EXPECT_EQ(geometry.offsetShowingRow(3), 56) << "a row higher than the viewport";
    EXPECT_EQ(geometry.rowOnNextPage(0, TableViewDirection::down), 0) << "its own height leaves one pixel";
    geometry.visible = {0, 110, 200, 60};
    EXPECT_EQ(geometry.rowAtPoint({50, 5}), -1) << "below the last row";
    EXPECT_TRUE(geometry.visibleRows().empty());
}

TEST(TableViewRowSet, AgreesWithASetOfNumbersAfterAnyChanges)
{
    std::mt19937 random(7);
    for (int round = 0; round < 200; ++round) {
        TableViewRowSet rows;
        std::set<int> expected;
        for (int step = 0; step < 30; ++step) {
            const int first = static_cast<int>(random() % 40);
            const int last = first + static_cast<int>(random() % 6) - 1;
            const bool inserts = random() % 3 != 0;
            inserts ? rows.insert(first, last) : rows.remove(first, last);
            for (int row = first; row <= last; ++row)
                inserts ? void(expected.insert(row)) : void(expected.erase(row));
        }
        for (int row = 0; row < 50; ++row)
            ASSERT_EQ(rows.contains(row), expected.contains(row)) << row;
        ASSERT_EQ(rows.count(), static_cast<int>(expected.size()));
        for (std::size_t run = 1; run < rows.runs().size(); ++run)
            ASSERT_GT(rows.runs()[run].first, rows.runs()[run - 1].last + 1) << "runs that touch are one";
    }
    TableViewRowSet all(-3, INT_MAX);
    all.insert(5, INT_MAX);
    EXPECT_THAT(all.runs(), testing::ElementsAre(TableViewRowSet::Run{0, INT_MAX}));
}

TEST(TableViewTypeSelect, LettersGrowUntilTheUserPauses)
{
    const std::vector<QString> texts{QStringLiteral("alpha"), QStringLiteral("beta"), QStringLiteral("Bravo"),
        QStringLiteral("bb"), QStringLiteral("ärger")};
    TableViewTypeSelect select;
    int selected = -1;
    const auto type = [&](const char16_t* letter, std::chrono::milliseconds now) {
        const TableViewTypeSelect::TimePoint time(now);
        const int row
            = select.find(QString::fromUtf16(letter), time, selected, static_cast<int>(texts.size()),
                [&](int index) { return texts.at(static_cast<std::size_t>(index)); });
        selected = row < 0 ? selected : row;
        return row;
    };
    EXPECT_EQ(type(u"b", 0ms), 1);
    EXPECT_EQ(type(u"r", 900ms), 2);
    EXPECT_EQ(type(u"b", 1800ms), -1) << "still the same word";
    EXPECT_EQ(type(u"b", 2800ms), 3) << "a new one";
    EXPECT_EQ(type(u"b", 2900ms), 3) << "a word of this letter twice comes before the next row";
    EXPECT_EQ(type(u"b", 3000ms), 1) << "the same letter again goes on, and round the end";
    EXPECT_EQ(type(u"Ä", 5000ms), 4);
    selected = 99; // from before the rows changed
    EXPECT_EQ(type(u"a", 9000ms), 0);
}

} // namespace
