// SPDX-License-Identifier: MIT
#pragma once

#include <QString>

#include <map>
#include <vector>

class QWidget;

namespace quor::platform {

class TableRowView;
class TableView;
struct TableViewGeometry;

/// The row widgets of a `TableView`: which row each of them shows, and which are kept for reuse.
///
/// A row's view stays in the row view that it first came in, and the pair moves from row to row: taking a
/// widget out of its parent would cost it the keyboard focus. The widgets are children of the viewport.
class TableViewRows final {
public:
    explicit TableViewRows(TableView& table);

    /// Gives widgets to the rows on the screen, and takes them from the others.
    void layout(const TableViewGeometry& geometry);
    /// The same, but asks the delegate again for the view of every row.
    void reload(const TableViewGeometry& geometry);
    /// Draws the selection as it is now.
    void updateSelection();
    /// Whether the table or a widget in it has the keyboard.
    void setEmphasized(bool emphasized);

    /// See `TableView::makeView`.
    [[nodiscard]] QWidget* makeView(const QString& identifier);
    /// Returns null for a row that has no widgets now.
    [[nodiscard]] TableRowView* rowViewAtRow(int row) const;
    /// Returns -1 for a row view that shows no row now.
    [[nodiscard]] int rowForRowView(const TableRowView* rowView) const;

private:
    [[nodiscard]] std::vector<int> rowsToShow(const TableViewGeometry& geometry) const;
    void show(int row);
    [[nodiscard]] TableRowView* take(QWidget* view);
    void placeShown(const TableViewGeometry& geometry);
    void drawSelection(int row, TableRowView& rowView) const;
    void retireAllBut(const std::vector<int>& rows, std::map<int, TableRowView*>& rowViews);
    void retire(TableRowView* rowView);
    void hide(TableRowView* rowView);

    TableView& table_;
    std::map<int, TableRowView*> shown_;
    std::map<int, TableRowView*> previous_; // shown before the reload, and not reused by it yet
    std::vector<TableRowView*> retired_;
    int askedRow_ = -1; // while the delegate is asked for its view
    bool emphasized_ = false;
};

} // namespace quor::platform
