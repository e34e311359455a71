// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <vector>

namespace quor::platform {

/// Where the rows of a `TableView` lie: their heights as running sums, so that a row is found by
/// its place in logarithmic time; rows of one height take no memory at all.
///
/// Heights below 0 count as 0. The sum stops at `limit`: rows behind it have no height.
class TableViewRowHeights final {
public:
    /// Leaves scroll bars and margins room to add within an int.
    static constexpr int limit = 1 << 30;

    void setUniform(int count, int height);
    /// Asks once for each row, in order.
    void setVarying(int count, const std::function<int(int row)>& heightOfRow);
    /// Asks again for the rows of `first` to `last`. Only after `setVarying`.
    void update(int first, int last, const std::function<int(int row)>& heightOfRow);

    [[nodiscard]] int count() const { return count_; }
    [[nodiscard]] int total() const { return bottom(count_ - 1); }
    /// The upper and lower edge of a row; the lower edge belongs to the next one.
    [[nodiscard]] int top(int row) const { return bottom(row - 1); }
    [[nodiscard]] int bottom(int row) const;
    /// The row that `y` lies in, never one without a height; -1 if there is none.
    [[nodiscard]] int rowAt(int y) const;

private:
    int count_ = 0;
    int uniformHeight_ = 0;
    std::vector<int> bottoms_; // empty while uniform
};

} // namespace quor::platform
