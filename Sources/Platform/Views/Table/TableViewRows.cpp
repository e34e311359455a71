// SPDX-License-Identifier: MIT
#include "Platform/Views/Table/TableViewRows.h"

#include "Platform/Views/Table/TableView.h"

#include <QApplication>

#include <algorithm>

namespace quor::platform {

namespace {

bool holdsFocus(const TableRowView* rowView)
{
    const QWidget* focus = QApplication::focusWidget();
    return focus && rowView->isAncestorOf(focus);
}

bool fits(const TableRowView* rowView, const QString& identifier)
{
    return rowView->view() && rowView->view()->objectName() == identifier;
}

} // namespace

TableViewRows::TableViewRows(TableView& table)
    : table_(table)
{
}

void TableViewRows::layout()
{
    const std::vector<int> rows = rowsToShow();
    for (auto shown = shown_.begin(); shown != shown_.end();) {
        const bool stays = std::binary_search(rows.begin(), rows.end(), shown->first);
        if (!stays)
            retire(shown->second);
        shown = stays ? std::next(shown) : shown_.erase(shown);
    }
    for (const int row : rows)
        if (!shown_.contains(row))
            show(row);
    for (const auto& [row, rowView] : shown_)
        place(row, rowView);
    hideRetired();
}

void TableViewRows::reload()
{
    const std::vector<int> rows = rowsToShow();
    before_ = std::exchange(shown_, {});
    // Rows that leave serve those that come; the others get their own widgets back.
    for (auto shown = before_.begin(); shown != before_.end();) {
        const bool stays = std::binary_search(rows.begin(), rows.end(), shown->first);
        if (!stays)
            retire(shown->second);
        shown = stays ? std::next(shown) : before_.erase(shown);
    }
    for (const int row : rows)
        show(row);
    for (const auto& [row, rowView] : std::exchange(before_, {}))
        retire(rowView);
    for (const auto& [row, rowView] : shown_)
        place(row, rowView);
    hideRetired();
}

void TableViewRows::updateSelection()
{
    for (const auto& [row, rowView] : shown_) {
        rowView->setEmphasized(table_.emphasized_);
        rowView->setSelected(table_.isRowSelected(row));
    }
}

QWidget* TableViewRows::makeView(const QString& identifier)
{
    if (askedRow_ < 0 || identifier.isEmpty())
        return nullptr;
    const auto own = before_.find(askedRow_);
    if (own != before_.end() && fits(own->second, identifier))
        return own->second->view();
    const auto spare = std::find_if(retired_.rbegin(), retired_.rend(),
        [&](const TableRowView* rowView) { return fits(rowView, identifier); });
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

std::vector<int> TableViewRows::rowsToShow() const
{
    const TableViewRowHeights& heights = table_.heights_;
    const QRect visible = table_.visibleRect().translated(0, -table_.insets_.top());
    std::vector<int> rows;
    // From edge to edge: rows without a height are passed over, however many there are.
    for (int y = std::max(visible.top(), 0); y <= visible.bottom();) {
        const int row = heights.rowAt(y);
        if (row < 0)
            break;
        rows.push_back(row);
        y = heights.bottom(row);
    }
    for (const auto& [row, rowView] : shown_) {
        const bool keeps = row < heights.count() && holdsFocus(rowView)
            && !std::binary_search(rows.begin(), rows.end(), row);
        if (keeps)
            rows.insert(std::lower_bound(rows.begin(), rows.end(), row), row);
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
    const auto isIt = [rowView](const auto& entry) { return entry.second == rowView; };
    std::erase_if(shown_, isIt);
    std::erase_if(before_, isIt);
    std::erase(retired_, rowView);
    return rowView;
}

void TableViewRows::place(int row, TableRowView* rowView)
{
    const int spacing = table_.intercellSpacing();
    QRect place = table_.viewportRectOfRow(row);
    // A row kept for its focus lies just outside: a widget cannot be moved by any distance.
    place.moveTop(std::clamp(place.top(), -place.height(), table_.viewport()->height()));
    rowView->setSpacing(spacing / 2, spacing - spacing / 2);
    rowView->setGeometry(place);
    rowView->setSelectionHighlightStyle(table_.selectionHighlightStyle());
    rowView->setEmphasized(table_.emphasized_);
    rowView->setSelected(table_.isRowSelected(row));
    rowView->show();
}

void TableViewRows::retire(TableRowView* rowView)
{
    // Not deleted at once: what reloads the table may be a click on this very row.
    if (!rowView->view() || rowView->view()->objectName().isEmpty()) {
        hide(rowView);
        rowView->deleteLater();
    } else {
        retired_.push_back(rowView);
    }
}

void TableViewRows::hide(TableRowView* rowView)
{
    // Else the focus would go to whatever comes next in the window.
    if (holdsFocus(rowView))
        table_.setFocus(Qt::OtherFocusReason);
    rowView->hide();
}

void TableViewRows::hideRetired()
{
    for (TableRowView* rowView : retired_)
        hide(rowView);
}

} // namespace quor::platform
