// SPDX-License-Identifier: MIT
#include "Platform/Views/Table/Accessibility/TableViewAccessible.h"
#include "Platform/Views/Table/TableView.h"
#include "Platform/Views/Table/TableViewHover.h"
#include "Platform/Views/Table/TableViewRows.h"

#include <QScrollBar>

#include <algorithm>
#include <limits>
#include <utility>

namespace quor::platform {

void TableView::setAllowsMultipleSelection(bool allows)
{
    allowsMultiple_ = allows;
    if (!allows && selection_.count() > 1)
        select(TableViewRowSet(selectedRow_), selectedRow_);
}

void TableView::selectRowIndexes(const TableViewRowSet& rows, bool byExtendingSelection)
{
    TableViewRowSet known = rows;
    known.remove(numberOfRows(), std::numeric_limits<int>::max());
    const bool extends = byExtendingSelection && allowsMultiple_;
    if (byExtendingSelection && known.isEmpty())
        return;
    const int last = known.last();
    if (extends)
        known.insert(selection_);
    else if (!allowsMultiple_ && last >= 0)
        known = TableViewRowSet(last);
    anchorRow_ = last;
    select(known, last);
}

void TableView::deselectRow(int row)
{
    TableViewRowSet others = selection_;
    others.remove(row, row);
    select(others, row == selectedRow_ ? others.last() : selectedRow_);
}

void TableView::deselectAll()
{
    select({}, -1);
}

void TableView::select(const TableViewRowSet& rows, int selectedRow, bool leads)
{
    if (rows == selection_ && selectedRow == selectedRow_)
        return;
    const int before = std::exchange(selectedRow_, selectedRow);
    selection_ = rows;
    rows_->updateSelection();
    tableViewAccessibility::selectionDidChange(*this, before, leads || hasFocus());
    if (TableViewDelegate* delegate = delegate_.get())
        delegate->selectionDidChange(*this);
}

void TableView::dropInvalidSelection()
{
    TableViewRowSet kept;
    for (const TableViewRowSet::Run& run : selection_.runs())
        kept.insert(selectableRows(run.first, std::min(run.last, numberOfRows() - 1)));
    if (kept == selection_)
        return;
    select(kept, kept.contains(selectedRow_) ? selectedRow_ : kept.last());
}

bool TableView::maySelect(int row) const
{
    const TableViewDelegate* delegate = delegate_.get();
    return delegate && row >= 0 && row < numberOfRows() && delegate->shouldSelectRow(*this, row);
}

TableViewRowSet TableView::selectableRows(int first, int last) const
{
    TableViewRowSet rows;
    for (int row = first; row <= last; ++row)
        if (maySelect(row))
            rows.insert(row);
    return rows;
}

void TableView::selectByUser(int row, Qt::KeyboardModifiers modifiers)
{
    if (row < 0) {
        if (allowsEmpty_ && modifiers == Qt::NoModifier)
            deselectAll();
        return;
    }
    if (!maySelect(row))
        return;
    const bool toggles = allowsMultiple_ && modifiers.testFlag(Qt::ControlModifier);
    if (allowsMultiple_ && modifiers.testFlag(Qt::ShiftModifier)) {
        extendTo(row);
    } else if (toggles && isRowSelected(row)) {
        if (allowsEmpty_ || selection_.count() > 1)
            deselectRow(row);
    } else {
        selectRowIndexes(TableViewRowSet(row), toggles);
    }
}

void TableView::extendTo(int row)
{
    if (!isRowSelected(anchorRow_))
        anchorRow_ = selectedRow_ >= 0 ? selectedRow_ : row;
    select(selectableRows(std::min(anchorRow_, row), std::max(anchorRow_, row)), row, true);
}

bool TableView::walk(TableViewStep step, bool byExtendingSelection)
{
    const int target = stepTarget(step);
    hover_->sleep();
    if (target < 0 || (target == selectedRow_ && selection_.count() == 1)) {
        // What lies beyond cannot be selected, a heading for one, but can be seen.
        const bool up
            = step == TableViewStep::up || step == TableViewStep::pageUp || step == TableViewStep::first;
        QScrollBar* bar = verticalScrollBar();
        bar->setValue(up ? bar->minimum() : bar->maximum());
        return false;
    }
    if (byExtendingSelection && allowsMultiple_) {
        extendTo(target);
    } else {
        anchorRow_ = target;
        select(TableViewRowSet(target), target, true);
    }
    scrollRowToVisible(target);
    return true;
}

int TableView::nextSelectable(int from, int by) const
{
    for (int row = from; row >= 0 && row < numberOfRows(); row += by)
        if (maySelect(row))
            return row;
    return -1;
}

int TableView::stepTarget(TableViewStep step) const
{
    const int end = numberOfRows() - 1;
    switch (step) {
    case TableViewStep::up:
        return nextSelectable(selectedRow_ < 0 ? end : selectedRow_ - 1, -1);
    case TableViewStep::down:
        return nextSelectable(selectedRow_ + 1, 1);
    case TableViewStep::pageUp:
        return pageTarget(-1);
    case TableViewStep::pageDown:
        return pageTarget(1);
    case TableViewStep::first:
        return nextSelectable(0, 1);
    case TableViewStep::last:
        return nextSelectable(end, -1);
    }
    return -1;
}

int TableView::pageTarget(int by) const
{
    if (selectedRow_ < 0)
        return stepTarget(by < 0 ? TableViewStep::up : TableViewStep::down);
    // A page on from the row's upper edge, so that one row of what was seen stays in sight.
    const int height = heights_.bottom(selectedRow_) - heights_.top(selectedRow_);
    const int page = std::max(viewport()->height() - height, 1);
    const int y = std::clamp(heights_.top(selectedRow_) + by * page, 0, std::max(heights_.total() - 1, 0));
    const int next = selectedRow_ + by;
    const int onPage = heights_.rowAt(y);
    const int goal = by < 0 ? std::min(onPage, next) : std::max(onPage, next);
    const int beyond = nextSelectable(goal, by);
    if (beyond >= 0)
        return beyond;
    const int nearer = nextSelectable(std::clamp(goal, 0, numberOfRows() - 1), -by);
    return (nearer - selectedRow_) * by > 0 ? nearer : -1;
}

} // namespace quor::platform
