// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

namespace quor::platform {

/// The heights of a table's rows, kept as running sums, so that the row at a y is found in logarithmic time.
/// Rows that all have the same height take no memory.
///
/// Lengths are device-independent pixels, y is counted from the upper edge of the first row. A negative
/// height is taken as 0. The sum of all heights stops at `limit`: rows beyond it have the height 0.
class TableViewRowHeights final {
public:
    /// Small enough that adding margins and scroll offsets does not overflow an int.
    static constexpr int limit = 1 << 30;

    /// `count` rows of the same height.
    void setUniform(int count, int height);
    /// `count` rows of different heights. Calls `heightOfRow` once for each row, in ascending order.
    void setVarying(int count, const std::function<int(int row)>& heightOfRow);
    /// Calls `heightOfRow` again for the rows from `first` to `last`, both included. Has no effect after
    /// `setUniform`.
    void update(int first, int last, const std::function<int(int row)>& heightOfRow);

    [[nodiscard]] int count() const { return count_; }
    [[nodiscard]] int total() const { return bottom(count_ - 1); }
    /// The y of the upper edge of a row, and of its lower edge, which is the upper edge of the next row.
    /// For a row beyond the last both are the end of the last row, for a negative row both are 0.
    [[nodiscard]] int top(int row) const { return bottom(row - 1); }
    [[nodiscard]] int bottom(int row) const;
    /// The row at `y`, never a row of height 0. Returns -1 above the first row and below the last.
    [[nodiscard]] int rowAt(int y) const;

private:
    int count_ = 0;
    int uniformHeight_ = 0;
    std::vector<int> bottoms_; // empty while uniform
};

} // namespace quor::platform
