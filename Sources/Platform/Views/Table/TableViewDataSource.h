// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Trackable.h"

namespace quor::platform {

class TableView;

/// Supplies the number of rows of a `TableView`. The table asks once in each `reloadData()`, so the answer
/// may change at any time. The table holds it weakly, so either may end first. Main thread only.
class TableViewDataSource : public Trackable {
public:
    /// Must not return a negative number.
    [[nodiscard]] virtual int numberOfRows(const TableView& table) const = 0;

protected:
    ~TableViewDataSource() = default;
};

} // namespace quor::platform
