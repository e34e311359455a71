// SPDX-License-Identifier: MIT
#include "Platform/Views/Table/TableViewGeometry.h"

#include <algorithm>

namespace quor::platform {

QRect TableViewGeometry::rectOfRow(int row) const
{
    if (row < 0 || row >= heights.count())
        return {};
    const int top = heights.top(row);
    const int width = visible.width() - insets.left() - insets.right();
    return {insets.left(), insets.top() + top, width, heights.bottom(row) - top};
}

int TableViewGeometry::rowAtPoint(QPoint viewportPoint) const
{
    if (!QRect(QPoint(), visible.size()).contains(viewportPoint))
        return -1;
    return heights.rowAt(viewportPoint.y() + visible.y() - insets.top());
}

std::vector<int> TableViewGeometry::visibleRows() const
{
    std::vector<int> rows;
    const int end = visible.y() + visible.height() - insets.top();
    // From edge to edge, so that any number of rows without a height costs nothing.
    for (int y = std::max(visible.y() - insets.top(), 0); y < end;) {
        const int row = heights.rowAt(y);
        if (row < 0)
            break;
        rows.push_back(row);
        y = heights.bottom(row);
    }
    return rows;
}

int TableViewGeometry::offsetShowingRow(int row) const
{
    if (row < 0 || row >= heights.count())
        return visible.y();
    const int top = row == 0 ? 0 : insets.top() + heights.top(row);
    const int bottom = row == heights.count() - 1 ? contentHeight() : insets.top() + heights.bottom(row);
    return std::min(std::max(visible.y(), bottom - visible.height()), top);
}

int TableViewGeometry::rowOnNextPage(int row, TableViewDirection direction) const
{
    const int height = heights.bottom(row) - heights.top(row);
    const int page = std::max(visible.height() - height, 1);
    const int y = heights.top(row) + static_cast<int>(direction) * page;
    return heights.rowAt(std::clamp(y, 0, std::max(heights.total() - 1, 0)));
}

} // namespace quor::platform
