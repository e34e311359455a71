// SPDX-License-Identifier: MIT
#include "Platform/Views/Table/TableViewRowHeights.h"

#include <algorithm>
#include <cstdint>

namespace quor::platform {

namespace {

int addedHeight(int bottom, int height)
{
    return std::min<int>(TableViewRowHeights::limit - bottom, std::max(height, 0)) + bottom;
}

} // namespace

void TableViewRowHeights::setUniform(int count, int height)
{
    count_ = std::max(count, 0);
    uniformHeight_ = std::max(height, 0);
    bottoms_ = {};
}

void TableViewRowHeights::setVarying(int count, const std::function<int(int)>& heightOfRow)
{
    // The closure may use this object, so it is called before anything changes.
    std::vector<int> bottoms(static_cast<std::size_t>(std::max(count, 0)));
    int bottom = 0;
    for (int row = 0; row < count; ++row) {
        bottom = addedHeight(bottom, heightOfRow(row));
        bottoms[static_cast<std::size_t>(row)] = bottom;
    }
    count_ = std::max(count, 0);
    bottoms_ = std::move(bottoms);
}

void TableViewRowHeights::update(int first, int last, const std::function<int(int)>& heightOfRow)
{
    if (bottoms_.empty())
        return;
    setVarying(count_,
        [&](int row) { return row >= first && row <= last ? heightOfRow(row) : bottom(row) - top(row); });
}

int TableViewRowHeights::bottom(int row) const
{
    if (row < 0 || count_ == 0)
        return 0;
    const int known = std::min(row, count_ - 1);
    if (!bottoms_.empty())
        return bottoms_[static_cast<std::size_t>(known)];
    return static_cast<int>(std::min<std::int64_t>((std::int64_t{known} + 1) * uniformHeight_, limit));
}

int TableViewRowHeights::rowAt(int y) const
{
    if (y < 0 || y >= total())
        return -1;
    if (bottoms_.empty())
        return y / uniformHeight_;
    return static_cast<int>(std::upper_bound(bottoms_.begin(), bottoms_.end(), y) - bottoms_.begin());
}

} // namespace quor::platform
