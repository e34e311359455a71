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
/// The anchor is the row from which Shift extends the selection: the row that a click without Shift, a step
/// without `extending`, or `select` selected last. If that row is not selected any more, the anchor is
/// `selectedRow()` or, without a selection, the new row itself.
///
/// Functions that change the selection return whether `rows()` or `selectedRow()` has changed. If so, they
/// have called `changed`.
class TableViewSelection final {
public:
    struct Change {
        int previousRow; ///< `selectedRow()` before the change
        bool isStep; ///< the user stepped to the new `selectedRow()`, or extended the selection to it
    };

    /// Returns whether the user may select a row of the list. While this is empty the user may select no row.
    Callback<bool(int row)> shouldSelectRow;
    /// Called after each change, before the function that made it returns.
    Callback<void(const Change& change)> changed;

    /// Leaves the selection as it is: call `dropInvalidRows` when the list is ready for the change.
    void setNumberOfRows(int count) { numberOfRows_ = count; }
    /// Whether more than one row can be selected. The default is false. If `allows` is false and several rows
    /// are selected, only `selectedRow()` stays selected.
    void setAllowsMultiple(bool allows);
    [[nodiscard]] bool allowsMultiple() const { return allowsMultiple_; }
    /// Whether clicks can leave no row selected. The default is true. Only `click` obeys this.
    void setAllowsEmpty(bool allows) { allowsEmpty_ = allows; }
    [[nodiscard]] bool allowsEmpty() const { return allowsEmpty_; }

    [[nodiscard]] const TableViewRowSet& rows() const { return rows_; }
    /// The row that was selected last; one of `rows()`. Returns -1 if no row is selected.
    [[nodiscard]] int selectedRow() const { return selectedRow_; }
    /// Whether the list has the row, and `shouldSelectRow` allows it.
    [[nodiscard]] bool maySelect(int row) const;

    /// Selects rows by program, also rows that the user must not select, in place of the selected ones. Rows
    /// that the list does not have are ignored. The highest of `rows` becomes `selectedRow()`; unless several
    /// rows can be selected, it is the only one that is selected. `extending` keeps the selected rows, if
    /// several rows can be selected; if the list has no row of `rows`, the call then has no effect.
    bool select(const TableViewRowSet& rows, bool extending);
    /// Deselects the row, also if the selection must not become empty. If it was `selectedRow()`, the highest
    /// row that is still selected becomes `selectedRow()`.
    bool deselect(int row);
    bool deselectAll() { return change({}, -1); }
    /// Deselects the rows that the list no longer has, or that the user must not select any more. If
    /// `selectedRow()` is among them, the highest row that is still selected becomes `selectedRow()`.
    bool dropInvalidRows();

    /// Changes the selection as a click on the row does. A click without modifiers selects only the row. With
    /// Shift, the selection becomes all rows from the anchor to the row that the user may select. Control
    /// adds the row to the selection or removes it. With both, Control is ignored. A row that the user must
    /// not select is ignored.
    ///
    /// Unless several rows can be selected, a click on a row ignores modifiers. Row -1 stands for a click
    /// outside the rows: without modifiers it deselects all rows if the selection can be empty; otherwise it
    /// is ignored.
    bool click(int row, Qt::KeyboardModifiers modifiers);
    /// Returns the row that a step leads to, and skips rows that the user must not select. Without a
    /// selection, up leads to the last row and down to the first. Returns -1 if there is no such row, as for
    /// a step down from the last row; `first` and `last` can return `selectedRow()` itself.
    [[nodiscard]] int target(TableViewStep step, const TableViewGeometry& geometry) const;
    /// Selects `row`, which must satisfy `maySelect`, as `target` returns it: alone, or with `extending`, if
    /// several rows can be selected, all rows from the anchor to it that the user may select.
    bool moveTo(int row, bool extending);
    /// Selects all rows that the user may select. `selectedRow()` stays if it is one of them; otherwise the
    /// first of them becomes `selectedRow()`. Has no effect unless several rows can be selected.
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
