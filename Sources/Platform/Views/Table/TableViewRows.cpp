// SPDX-License-Identifier: MIT
#include "Platform/Views/Table/TableViewRows.h"

#include "Platform/Views/Table/TableView.h"
#include "Platform/Views/Table/TableViewGeometry.h"

#include <QApplication>

#include <algorithm>
#include <utility>

namespace quor::platform {

namespace {

bool holdsFocus(const TableRowView* rowView)
{
    const QWidget* focus = QApplication::focusWidget();
    return focus && rowView->isAncestorOf(focus);
}

bool hasIdentifier(const TableRowView* rowView, const QString& identifier)
{
    return rowView->view() && rowView->view()->objectName() == identifier;
}

} // namespace

TableViewRows::TableViewRows(TableView& table)
    : table_(table)
{
}

void TableViewRows::layout(const TableViewGeometry& geometry)
{
    const std::vector<int> rows = rowsToShow(geometry);
    retireAllBut(rows, shown_);
    for (const int row : rows)
        if (!shown_.contains(row))
            show(row);
    placeShown(geometry);
}

void TableViewRows::reload(const TableViewGeometry& geometry)
{
    const std::vector<int> rows = rowsToShow(geometry);
    previous_ = std::exchange(shown_, {});
    // Widgets of rows that leave serve the rows that come; the other rows get their own widgets back.
    retireAllBut(rows, previous_);
    for (const int row : rows)
        show(row);
    retireAllBut({}, previous_);
    placeShown(geometry);
}

void TableViewRows::updateSelection()
{
    for (const auto& [row, rowView] : shown_)
        drawSelection(row, *rowView);
}

void TableViewRows::setEmphasized(bool emphasized)
{
    if (std::exchange(emphasized_, emphasized) != emphasized)
        updateSelection();
}

QWidget* TableViewRows::makeView(const QString& identifier)
{
    if (askedRow_ < 0 || identifier.isEmpty())
        return nullptr;
    const auto own = previous_.find(askedRow_);
    if (own != previous_.end() && hasIdentifier(own->second, identifier))
        return own->second->view();
    const auto spare = std::find_if(retired_.rbegin(), retired_.rend(),
        [&](const TableRowView* rowView) { return hasIdentifier(rowView, identifier); });
    return spare == retired_.rend() ? nullptr : (*spare)->view();
}

TableRowView* TableViewRows::rowViewAtRow(int row) const
{
    const auto shown = shown_.find(row);
    return shown == shown_.end() ? nullptr : shown->second;
}

int TableViewRows::rowForRowView(const TableRowView* rowView) const
{
    const auto shown = std::find_if(
        shown_.begin(), shown_.end(), [rowView](const auto& entry) { return entry.second == rowView; });
    return shown == shown_.end() ? -1 : shown->first;
}

std::vector<int> TableViewRows::rowsToShow(const TableViewGeometry& geometry) const
{
    std::vector<int> rows = geometry.visibleRows();
    for (const auto& [row, rowView] : shown_) {
        const auto position = std::lower_bound(rows.begin(), rows.end(), row);
        const bool isVisible = position != rows.end() && *position == row;
        if (!isVisible && row < geometry.heights.count() && holdsFocus(rowView))
            rows.insert(position, row);
    }
    return rows;
}

void TableViewRows::show(int row)
{
    TableViewDelegate* delegate = table_.delegate();
    if (!delegate)
        return;
    askedRow_ = row;
    QWidget* view = delegate->viewForRow(table_, row);
    TableRowView* rowView = take(view);
    if (!rowView) {
        rowView = delegate->rowViewForRow(table_, row);
        if (!rowView)
            rowView = new TableRowView;
        rowView->setParent(table_.viewport());
        rowView->setView(view);
    }
    askedRow_ = -1;
    shown_[row] = rowView;
}

TableRowView* TableViewRows::take(QWidget* view)
{
    auto* rowView = view ? qobject_cast<TableRowView*>(view->parentWidget()) : nullptr;
    if (!rowView || rowView->parentWidget() != table_.viewport())
        return nullptr;
    const auto isTaken = [rowView](const auto& entry) { return entry.second == rowView; };
    std::erase_if(shown_, isTaken);
    std::erase_if(previous_, isTaken);
    std::erase(retired_, rowView);
    return rowView;
}

void TableViewRows::placeShown(const TableViewGeometry& geometry)
{
    for (const auto& [row, rowView] : shown_) {
        QRect place = geometry.viewportRectOfRow(row);
        // A row kept for its focus lies just outside: a widget cannot be moved by any distance.
        place.moveTop(std::clamp(place.top(), -place.height(), geometry.visible.height()));
        rowView->setSpacing(geometry.spacing / 2, geometry.spacing - geometry.spacing / 2);
        rowView->setGeometry(place);
        rowView->setSelectionHighlightStyle(table_.selectionHighlightStyle());
        drawSelection(row, *rowView);
        rowView->show();
    }
    for (TableRowView* rowView : retired_)
        hide(rowView);
}

void TableViewRows::drawSelection(int row, TableRowView& rowView) const
{
    rowView.setEmphasized(emphasized_);
    rowView.setSelected(table_.isRowSelected(row));
}

void TableViewRows::retireAllBut(const std::vector<int>& rows, std::map<int, TableRowView*>& rowViews)
{
    std::erase_if(rowViews, [&](const auto& entry) {
        const bool stays = std::binary_search(rows.begin(), rows.end(), entry.first);
        if (!stays)
            retire(entry.second);
        return !stays;
    });
}

void TableViewRows::retire(TableRowView* rowView)
{
    // Not deleted at once: the table may be reloaded by a click on this very row.
    if (!rowView->view() || rowView->view()->objectName().isEmpty()) {
        hide(rowView);
        rowView->deleteLater();
    } else {
        retired_.push_back(rowView);
    }
}

void TableViewRows::hide(TableRowView* rowView)
{
    // Otherwise the focus would go to the next widget of the window.
    if (holdsFocus(rowView))
        table_.setFocus(Qt::OtherFocusReason);
    rowView->hide();
}

} // namespace quor::platform
