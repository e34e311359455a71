// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Views/Table/TableViewRowHeights.h"

#include <QMargins>
#include <QRect>

#include <vector>

namespace quor::platform {

enum class TableViewDirection { up = -1, down = 1 };

/// Where the rows of a table lie in its content, and which part of the content is on the screen. Made
/// for one layout or one question; borrows the heights, and so must not outlive them.
///
/// All lengths are device-independent pixels. y grows downwards, from the upper edge of the content, which is
/// the upper edge of the insets, and does not change by scrolling.
struct TableViewGeometry final {
    const TableViewRowHeights& heights; ///< with the spacing
    QMargins insets; ///< around the rows, as seen: left is left in a right-to-left layout too
    int spacing = 0; ///< the part of each height that is left free, half of it above the row's view
    QRect visible; ///< the part of the content that the viewport shows

    /// The height of all rows and of the insets above and below them.
    [[nodiscard]] int contentHeight() const { return heights.total() + insets.top() + insets.bottom(); }
    /// The row and its spacing, in the content. Returns a null rectangle if there is no such row.
    [[nodiscard]] QRect rectOfRow(int row) const;
    /// `rectOfRow` in the viewport, also for a row that is not on the screen.
    [[nodiscard]] QRect viewportRectOfRow(int row) const
    {
        return rectOfRow(row).translated(0, -visible.y());
    }
    /// The row at a point of the viewport. Returns -1 if the point is outside the viewport, or no row is
    /// there.
    [[nodiscard]] int rowAtPoint(QPoint viewportPoint) const;
    /// The rows that are at least partly on the screen, in ascending order. Rows without a height are
    /// never among them.
    [[nodiscard]] std::vector<int> visibleRows() const;

    /// The y of the content that has to be at the viewport's upper edge so that the whole row can be seen:
    /// the nearest to `visible.y()`. A row higher than the viewport is shown from its upper edge. The first
    /// and the last row are shown with the insets next to them. Returns `visible.y()` if there is no such
    /// row.
    [[nodiscard]] int offsetShowingRow(int row) const;
    /// The row that a page key reaches from `row`: a viewport further, less the height of `row`, so that
    /// one row of the page before can still be seen. `row` must exist. Returns -1 if no row has a height.
    [[nodiscard]] int rowOnNextPage(int row, TableViewDirection direction) const;
};

} // namespace quor::platform
