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

/// What a screen reader says about a row, whether it is on the screen or not.
struct TableViewRowDescription {
    QString text;
    QAccessible::Role role = QAccessible::ListItem;
    bool isEnabled = true;
    std::optional<bool> isChecked; ///< `nullopt` for a row that cannot be checked
};

/// Supplies the widgets, heights and texts of a `TableView`'s rows, decides which rows the user may select,
/// and is notified of what the user does with them.
///
/// Rows are counted from 0, and every `row` passed in exists. How often and in which order the functions are
/// called is unspecified; except for the heights, they are called for rows that are about to be seen. A
/// `reloadData()` from within a `const` function, `viewForRow` or `rowViewForRow` takes effect when the event
/// loop next runs. Only `didClickRow` may delete the table. The table holds its delegate weakly, so either
/// may end first. Main thread only.
class TableViewDelegate : public Trackable {
public:
    /// Returns the widget that fills the row: one from `TableView::makeView`, or a new one. The table takes
    /// ownership and sets its geometry. When the row leaves the screen, the widget is kept for reuse under
    /// its `objectName()`, or deleted if it has no name. A widget that another row shows moves to this row.
    /// Null leaves the row empty.
    [[nodiscard]] virtual QWidget* viewForRow(TableView& table, int row) = 0;

    /// Returns a new widget to put the row's view in, which draws the selection, or null for a plain
    /// `TableRowView`. The table takes ownership. Called only for a new view: a reused view stays in its
    /// row view.
    [[nodiscard]] virtual TableRowView* rowViewForRow(TableView& table, int row);

    /// Returns the row's height in device-independent pixels, without the spacing; a negative height is taken
    /// as 0. Called for every row in each reload, unless `TableView::setUniformRowHeight` was called, so it
    /// has to be fast. Returns 20 unless overridden.
    [[nodiscard]] virtual int heightOfRow(const TableView& table, int row) const;

    /// Whether the user may select the row. Not called when the program selects it. Returns true unless
    /// overridden.
    [[nodiscard]] virtual bool shouldSelectRow(const TableView& table, int row) const;

    /// Returns the text by which typing finds the row, or an empty text if typing must not find it. Returns
    /// an empty text unless overridden.
    [[nodiscard]] virtual QString typeSelectString(const TableView& table, int row) const;

    /// Describes the row to screen readers. Unless overridden, returns an enabled list item with the text of
    /// `typeSelectString`.
    [[nodiscard]] virtual TableViewRowDescription describeRow(const TableView& table, int row) const;

    /// `selectedRowIndexes()` or `selectedRow()` has changed.
    virtual void selectionDidChange(TableView& table);

    /// The left button was pressed and released on the row, also if the row must not be selected. A widget
    /// in the row that handles clicks itself gets them instead. May delete the table.
    virtual void didClickRow(TableView& table, int row);

    /// The pointer was moved over `row`, or over no row if that is -1. Called for each move while no button
    /// is held. Not called when scrolling, a reload or a new window brings a row under a resting pointer.
    virtual void pointerDidHoverRow(TableView& table, int row);

    /// The pointer was moved off the rows after a `pointerDidHoverRow`.
    virtual void pointerDidLeave(TableView& table);

protected:
    ~TableViewDelegate() = default;
};

} // namespace quor::platform
