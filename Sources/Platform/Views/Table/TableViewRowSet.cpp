// SPDX-License-Identifier: MIT
#include "Platform/Views/Table/TableViewRowSet.h"

#include <algorithm>
#include <limits>
#include <numeric>

namespace quor::platform {

void TableViewRowSet::insert(int first, int last)
{
    first = std::max(first, 0);
    if (last < first)
        return;
    // The runs that overlap the new run or touch it are merged with it.
    const auto begin = std::partition_point(
        runs_.begin(), runs_.end(), [first](const Run& run) { return run.last < first - 1; });
    const auto end = std::partition_point(begin, runs_.end(),
        [last](const Run& run) { return last == std::numeric_limits<int>::max() || run.first <= last + 1; });
    if (begin != end) {
        first = std::min(first, begin->first);
        last = std::max(last, (end - 1)->last);
    }
    runs_.insert(runs_.erase(begin, end), Run{first, last});
}

void TableViewRowSet::insert(const TableViewRowSet& rows)
{
    for (const Run& run : rows.runs_)
        insert(run.first, run.last);
}

void TableViewRowSet::remove(int first, int last)
{
    if (last < first)
        return;
    std::vector<Run> kept;
    for (const Run& run : runs_) {
        if (run.last < first || run.first > last) {
            kept.push_back(run);
            continue;
        }
        if (run.first < first)
            kept.push_back({run.first, first - 1});
        if (run.last > last)
            kept.push_back({last + 1, run.last});
    }
    runs_ = std::move(kept);
}

bool TableViewRowSet::contains(int row) const
{
    const auto run = std::partition_point(
        runs_.begin(), runs_.end(), [row](const Run& candidate) { return candidate.last < row; });
    return run != runs_.end() && run->first <= row;
}

int TableViewRowSet::count() const
{
    return std::accumulate(runs_.begin(), runs_.end(), 0,
        [](int sum, const Run& run) { return sum + run.last - run.first + 1; });
}

} // namespace quor::platform
