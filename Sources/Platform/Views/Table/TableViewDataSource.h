// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Trackable.h"

namespace quor::platform {

class TableView;

/// Tells a `TableView` how many rows it has. The table asks once for each `reloadData()`, so the
/// answer may change at any time. The table refers to it weakly, so either may end first. Main thread
/// only.
class TableViewDataSource : public Trackable {
public:
    /// Never negative.
    [[nodiscard]] virtual int numberOfRows(const TableView& table) const = 0;

protected:
    ~TableViewDataSource() = default;
};

} // namespace quor::platform
