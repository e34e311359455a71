// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Callback.h"
#include "Platform/Views/Table/TableViewGeometry.h"
#include "Platform/Views/Table/TableViewRowSet.h"

#include <Qt>

namespace quor::platform {

/// A step of the selection by keyboard.
enum class TableViewStep { up, down, pageUp, pageDown, first, last };

/// The selection of a list: the selected rows, the one of them that was selected last, and the rules by
/// which clicks and keys change them. Knows no widget.
///
/// Functions that change the selection return whether it has changed, after calling `changed` if so.
class TableViewSelection final {
public:
    struct Change {
        int previousRow; ///< `selectedRow()` before the change
        bool isStep; ///< the user stepped to the new `selectedRow()`, or extended the selection to it
    };

    /// Whether the user may select a row of the list. While this is empty the user may select no row.
    Callback<bool(int row)> shouldSelectRow;
    Callback<void(const Change& change)> changed;

    /// Leaves the selection as it is: call `dropInvalidRows` when the list is ready for the change.
    void setNumberOfRows(int count) { numberOfRows_ = count; }
    /// Off at first. When it is switched off, only `selectedRow()` stays selected.
    void setAllowsMultiple(bool allows);
    [[nodiscard]] bool allowsMultiple() const { return allowsMultiple_; }
    /// Whether the user can deselect the last row. On at first.
    void setAllowsEmpty(bool allows) { allowsEmpty_ = allows; }
    [[nodiscard]] bool allowsEmpty() const { return allowsEmpty_; }

    [[nodiscard]] const TableViewRowSet& rows() const { return rows_; }
    /// The row that was selected last. Returns -1 if no row is selected.
    [[nodiscard]] int selectedRow() const { return selectedRow_; }
    [[nodiscard]] bool maySelect(int row) const;

    /// Selects rows by program, also rows that the user must not select. Rows that the list does not have are
    /// ignored. If only one row can be selected, the last of `rows` is. `extending` keeps what is selected,
    /// if several rows can be.
    bool select(const TableViewRowSet& rows, bool extending);
    bool deselect(int row);
    bool deselectAll() { return change({}, -1); }
    /// Deselects the rows that the list no longer has, or that the user must not select any more.
    bool dropInvalidRows();

    /// Selects what a click on the row selects: with Shift also all rows between it and the anchor; with
    /// Control, the click adds the row to the selection or removes it. Row -1 stands for a click beside the
    /// rows.
    bool click(int row, Qt::KeyboardModifiers modifiers);
    /// The row that a step leads to. Skips rows that must not be selected, and stops at the ends. Without a
    /// selection, down leads to the first row and up to the last. Returns -1 if there is no such row.
    [[nodiscard]] int target(TableViewStep step, const TableViewGeometry& geometry) const;
    /// Selects the row that a step leads to: alone, or `extending` with all rows from the anchor on.
    bool moveTo(int row, bool extending);
    /// Selects all rows that the user may select.
    bool selectAll();

private:
    bool change(TableViewRowSet rows, int selectedRow, bool isStep = false);
    bool extendTo(int row);
    [[nodiscard]] int nextSelectable(int from, TableViewDirection direction) const;
    [[nodiscard]] int pageTarget(TableViewDirection direction, const TableViewGeometry& geometry) const;
    [[nodiscard]] TableViewRowSet selectableRows(int first, int last) const;

    int numberOfRows_ = 0;
    TableViewRowSet rows_;
    int selectedRow_ = -1;
    int anchorRow_ = -1; // where a selection extended by Shift began
    bool allowsMultiple_ = false;
    bool allowsEmpty_ = true;
};

} // namespace quor::platform
