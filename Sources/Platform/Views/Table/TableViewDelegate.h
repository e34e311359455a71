// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Trackable.h"

#include <QAccessible>
#include <QString>

#include <optional>

class QWidget;

namespace quor::platform {

class TableRowView;
class TableView;

/// What a screen reader says of a row, on the screen or not.
struct TableViewRowDescription {
    QString text;
    QAccessible::Role role = QAccessible::ListItem;
    bool isEnabled = true;
    std::optional<bool> isChecked; ///< absent: the row cannot be checked
};

/// Gives a `TableView` its row views and decides on its rows; told of what happens to them.
///
/// Rows count from 0; each row handed in is one of the table's. Nothing here may be assumed to be
/// asked once, or in order; it is asked for rows that are about to be seen, the heights apart.
/// `reloadData()` from within a question takes effect when the event loop next turns. The table refers
/// to it weakly, so either may end first. Main thread only.
class TableViewDelegate : public Trackable {
public:
    /// The widget that fills the row: one that `TableView::makeView` hands out for reuse, or a new
    /// one. Its `objectName()` is the identifier that it is kept under when its row leaves; without
    /// a name it is deleted then. The table owns the widget from here on, and lays it out. Null
    /// leaves the row empty. Handing out a widget that another row shows moves it here.
    [[nodiscard]] virtual QWidget* viewForRow(TableView& table, int row) = 0;

    /// The widget under the row's view, which draws the selection; null for a plain one. Asked only
    /// for a view that has none: a reused view comes in the row view that it had.
    [[nodiscard]] virtual TableRowView* rowViewForRow(TableView& table, int row);

    /// In device-independent pixels, without the spacing; less than 0 counts as 0. Asked of every
    /// row at each reload, unless the table has a `uniformRowHeight()`: keep it cheap.
    [[nodiscard]] virtual int heightOfRow(const TableView& table, int row) const;

    /// Whether the user may select the row. Selecting from code does not ask.
    [[nodiscard]] virtual bool shouldSelectRow(const TableView& table, int row) const;

    /// The text by which typing finds the row; empty if it cannot be found.
    [[nodiscard]] virtual QString typeSelectString(const TableView& table, int row) const;

    /// Unless overridden: an enabled list item named by `typeSelectString`.
    [[nodiscard]] virtual TableViewRowDescription describeRow(const TableView& table, int row) const;

    /// Another set of rows is selected, or another one of them is the `selectedRow()`.
    virtual void selectionDidChange(TableView& table);

    /// The primary button went down and up on a row, whether it may be selected or not. A widget in
    /// the row that takes clicks itself keeps them. `TableView::clickedRow()` has the row too.
    virtual void didClickRow(TableView& table, int row);

    /// The row under the pointer, -1 if there is none: at each move without a button held, and when
    /// scrolling or new rows bring another row under a resting pointer. After a walk by keys, and
    /// while a pointer has not moved since the table came under it, it is taken for absent.
    virtual void pointerDidHoverRow(TableView& table, int row);

    /// The pointer went elsewhere after a hover was told.
    virtual void pointerDidLeave(TableView& table);

protected:
    ~TableViewDelegate() = default;
};

} // namespace quor::platform
