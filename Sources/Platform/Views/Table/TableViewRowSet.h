// SPDX-License-Identifier: MIT
#pragma once

#include <vector>

namespace quor::platform {

/// A set of row indexes, kept as runs of consecutive rows: a million consecutive rows take one run.
class TableViewRowSet final {
public:
    struct Run {
        int first;
        int last; ///< included
        friend bool operator==(const Run&, const Run&) = default;
    };

    TableViewRowSet() = default;
    explicit TableViewRowSet(int row) { insert(row, row); }
    TableViewRowSet(int first, int last) { insert(first, last); }

    /// Inserts the rows from `first` to `last`, both included. Negative rows are ignored, and so is a `last`
    /// before `first`.
    void insert(int row) { insert(row, row); }
    void insert(int first, int last);
    void insert(const TableViewRowSet& rows);
    /// Removes the rows from `first` to `last`, both included.
    void remove(int first, int last);

    [[nodiscard]] bool contains(int row) const;
    [[nodiscard]] bool isEmpty() const { return runs_.empty(); }
    [[nodiscard]] int count() const;
    /// The highest row. Returns -1 if the set is empty.
    [[nodiscard]] int last() const { return runs_.empty() ? -1 : runs_.back().last; }
    /// Returns the runs in ascending order. Between two runs at least one row is missing.
    [[nodiscard]] const std::vector<Run>& runs() const { return runs_; }

    friend bool operator==(const TableViewRowSet&, const TableViewRowSet&) = default;

private:
    std::vector<Run> runs_;
};

} // namespace quor::platform
