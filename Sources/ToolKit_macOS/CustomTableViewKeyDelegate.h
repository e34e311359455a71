// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Trackable.h"

namespace quor::toolkit {

class CustomTableView;

/// Receives the keys and double clicks of a `CustomTableView`. `row` is the selected row, or -1 if no row is
/// selected. The table holds its delegate weakly. Main thread only.
class CustomTableViewKeyDelegate : public platform::Trackable {
public:
    virtual void tableViewDidPressEnter(CustomTableView& table, int row) = 0;
    virtual void tableViewDidPressSpace(CustomTableView& table, int row) = 0;
    virtual void tableViewDidMoveLeft(CustomTableView& table, int row) = 0;
    virtual void tableViewDidMoveRight(CustomTableView& table, int row) = 0;
    virtual void tableViewDidDoubleClick(CustomTableView& table, int row) = 0;

protected:
    ~CustomTableViewKeyDelegate() = default;
};

} // namespace quor::toolkit
