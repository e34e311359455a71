// SPDX-License-Identifier: MIT
#include "Platform/Views/Table/TableViewSelection.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace quor::platform {

void TableViewSelection::setAllowsMultiple(bool allows)
{
    allowsMultiple_ = allows;
    if (!allows && rows_.count() > 1)
        change(TableViewRowSet(selectedRow_), selectedRow_);
}

bool TableViewSelection::maySelect(int row) const
{
    return row >= 0 && row < numberOfRows_ && shouldSelectRow(row);
}

bool TableViewSelection::select(const TableViewRowSet& rows, bool extending)
{
    TableViewRowSet known = rows;
    known.remove(numberOfRows_, std::numeric_limits<int>::max());
    if (extending && known.isEmpty())
        return false;
    const int last = known.last();
    if (extending && allowsMultiple_)
        known.insert(rows_);
    else if (!allowsMultiple_ && last >= 0)
        known = TableViewRowSet(last);
    anchorRow_ = last;
    return change(std::move(known), last);
}

bool TableViewSelection::deselect(int row)
{
    TableViewRowSet others = rows_;
    others.remove(row, row);
    const int selectedRow = row == selectedRow_ ? others.last() : selectedRow_;
    return change(std::move(others), selectedRow);
}

bool TableViewSelection::dropInvalidRows()
{
    TableViewRowSet valid;
    for (const TableViewRowSet::Run& run : rows_.runs())
        valid.insert(selectableRows(run.first, std::min(run.last, numberOfRows_ - 1)));
    if (valid == rows_)
        return false;
    const int selectedRow = valid.contains(selectedRow_) ? selectedRow_ : valid.last();
    return change(std::move(valid), selectedRow);
}

bool TableViewSelection::click(int row, Qt::KeyboardModifiers modifiers)
{
    if (row < 0)
        return allowsEmpty_ && modifiers == Qt::NoModifier && deselectAll();
    if (!maySelect(row))
        return false;
    if (allowsMultiple_ && modifiers.testFlag(Qt::ShiftModifier))
        return extendTo(row);
    const bool toggles = allowsMultiple_ && modifiers.testFlag(Qt::ControlModifier);
    if (toggles && rows_.contains(row))
        return (allowsEmpty_ || rows_.count() > 1) && deselect(row);
    return select(TableViewRowSet(row), toggles);
}

int TableViewSelection::target(TableViewStep step, const TableViewGeometry& geometry) const
{
    using enum TableViewDirection;
    const int end = numberOfRows_ - 1;
    switch (step) {
    case TableViewStep::up:
        return nextSelectable(selectedRow_ < 0 ? end : selectedRow_ - 1, up);
    case TableViewStep::down:
        return nextSelectable(selectedRow_ + 1, down);
    case TableViewStep::pageUp:
        return selectedRow_ < 0 ? nextSelectable(end, up) : pageTarget(up, geometry);
    case TableViewStep::pageDown:
        return selectedRow_ < 0 ? nextSelectable(0, down) : pageTarget(down, geometry);
    case TableViewStep::first:
        return nextSelectable(0, down);
    case TableViewStep::last:
        return nextSelectable(end, up);
    }
    return -1;
}

int TableViewSelection::pageTarget(TableViewDirection direction, const TableViewGeometry& geometry) const
{
    const bool goesUp = direction == TableViewDirection::up;
    const int next = selectedRow_ + static_cast<int>(direction);
    const int onPage = geometry.rowOnNextPage(selectedRow_, direction);
    const int goal = goesUp ? std::min(onPage, next) : std::max(onPage, next);
    const int beyond = nextSelectable(goal, direction);
    if (beyond >= 0)
        return beyond;
    // No row beyond the goal may be selected: take the last one before it.
    const int nearer = goesUp ? nextSelectable(std::max(goal, 0), TableViewDirection::down)
                              : nextSelectable(std::min(goal, numberOfRows_ - 1), TableViewDirection::up);
    return (goesUp ? nearer < selectedRow_ : nearer > selectedRow_) ? nearer : -1;
}

int TableViewSelection::nextSelectable(int from, TableViewDirection direction) const
{
    for (int row = from; row >= 0 && row < numberOfRows_; row += static_cast<int>(direction))
        if (maySelect(row))
            return row;
    return -1;
}

bool TableViewSelection::moveTo(int row, bool extending)
{
    if (extending && allowsMultiple_)
        return extendTo(row);
    anchorRow_ = row;
    return change(TableViewRowSet(row), row, true);
}

bool TableViewSelection::extendTo(int row)
{
    if (!rows_.contains(anchorRow_))
        anchorRow_ = selectedRow_ >= 0 ? selectedRow_ : row;
    return change(selectableRows(std::min(anchorRow_, row), std::max(anchorRow_, row)), row, true);
}

bool TableViewSelection::selectAll()
{
    if (!allowsMultiple_)
        return false;
    TableViewRowSet rows = selectableRows(0, numberOfRows_ - 1);
    const int selectedRow
        = rows.contains(selectedRow_) ? selectedRow_ : nextSelectable(0, TableViewDirection::down);
    return change(std::move(rows), selectedRow);
}

TableViewRowSet TableViewSelection::selectableRows(int first, int last) const
{
    TableViewRowSet rows;
    for (int row = first; row <= last; ++row)
        if (maySelect(row))
            rows.insert(row);
    return rows;
}

bool TableViewSelection::change(TableViewRowSet rows, int selectedRow, bool isStep)
{
    if (rows == rows_ && selectedRow == selectedRow_)
        return false;
    rows_ = std::move(rows);
    const int previousRow = std::exchange(selectedRow_, selectedRow);
    changed({.previousRow = previousRow, .isStep = isStep});
    return true;
}

} // namespace quor::platform
