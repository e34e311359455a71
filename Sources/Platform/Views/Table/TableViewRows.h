// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <map>
#include <vector>

class QWidget;

namespace quor::platform {

class TableRowView;
class TableView;

/// The row widgets of a `TableView`: which row each shows, and those kept for reuse.
///
/// A row's view stays in the row view that it first came in, and the pair moves from row to row:
/// taking a widget out of its parent would cost it the keyboard focus.
class TableViewRows final {
public:
    explicit TableViewRows(TableView& table);

    /// Brings widgets to the rows on the screen and takes them from the others.
    void layout();
    /// The same, asking the delegate again for each row.
    void reload();
    /// The look of the selection only.
    void updateSelection();

    [[nodiscard]] QWidget* makeView(const QString& identifier);
    [[nodiscard]] TableRowView* rowViewAtRow(int row) const;
    [[nodiscard]] int rowForRowView(const TableRowView* rowView) const;

private:
    [[nodiscard]] std::vector<int> rowsToShow() const;
    void show(int row);
    [[nodiscard]] TableRowView* take(QWidget* view);
    void place(int row, TableRowView* rowView);
    void retire(TableRowView* rowView);
    void hide(TableRowView* rowView);
    void hideRetired();

    TableView& table_;
    std::map<int, TableRowView*> shown_;
    std::map<int, TableRowView*> before_; // what a reload has not given out again yet
    std::vector<TableRowView*> retired_;
    int askedRow_ = -1; // while the delegate is asked for its view
};

} // namespace quor::platform
