// SPDX-License-Identifier: MIT
#include "Platform/Views/Table/Accessibility/TableViewListInterface.h"

#include "Platform/Views/Table/Accessibility/TableViewRowInterface.h"
#include "Platform/Views/Table/TableView.h"

namespace quor::platform {

TableViewListInterface::TableViewListInterface(TableView& table)
    : QAccessibleWidget(&table, QAccessible::List)
{
}

TableViewListInterface::~TableViewListInterface()
{
    forgetRows();
}

TableView* TableViewListInterface::table() const
{
    return static_cast<TableView*>(widget());
}

void TableViewListInterface::forgetRows()
{
    for (const QAccessible::Id row : std::exchange(rows_, {}))
        QAccessible::deleteAccessibleInterface(row);
}

void* TableViewListInterface::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableInterface)
        return static_cast<QAccessibleTableInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
}

int TableViewListInterface::childCount() const
{
    return table()->numberOfRows();
}

QAccessibleInterface* TableViewListInterface::child(int index) const
{
    if (index < 0 || index >= childCount())
        return nullptr;
    const auto known = rows_.constFind(index);
    if (known != rows_.constEnd())
        return QAccessible::accessibleInterface(*known);
    auto* row = new TableViewRowInterface(*table(), index);
    rows_.insert(index, QAccessible::registerAccessibleInterface(row)); // takes ownership
    return row;
}

int TableViewListInterface::indexOfChild(const QAccessibleInterface* child) const
{
    const auto* row = dynamic_cast<const TableViewRowInterface*>(child);
    return row && row->table() == this ? row->rowIndex() : -1;
}

QAccessibleInterface* TableViewListInterface::childAt(int x, int y) const
{
    const QWidget* viewport = table()->viewport();
    const QPoint point = viewport->mapFromGlobal(QPoint(x, y));
    return viewport->rect().contains(point) ? child(table()->rowAtPoint(point)) : nullptr;
}

QAccessibleInterface* TableViewListInterface::focusChild() const
{
    if (table()->hasFocus())
        return child(table()->selectedRow());
    return QAccessibleWidget::focusChild();
}

QAccessibleInterface* TableViewListInterface::cellAt(int row, int column) const
{
    return column == 0 ? child(row) : nullptr;
}

int TableViewListInterface::selectedCellCount() const
{
    return table()->selectedRowIndexes().count();
}

QList<QAccessibleInterface*> TableViewListInterface::selectedCells() const
{
    QList<QAccessibleInterface*> cells;
    for (const int row : selectedRows())
        cells.append(child(row));
    return cells;
}

QString TableViewListInterface::columnDescription(int /*column*/) const
{
    return {};
}

QString TableViewListInterface::rowDescription(int row) const
{
    const QAccessibleInterface* cell = child(row);
    return cell ? cell->text(QAccessible::Name) : QString();
}

QList<int> TableViewListInterface::selectedRows() const
{
    QList<int> rows;
    for (const TableViewRowSet::Run& run : table()->selectedRowIndexes().runs())
        for (int row = run.first; row <= run.last; ++row)
            rows.append(row);
    return rows;
}

bool TableViewListInterface::isRowSelected(int row) const
{
    return table()->isRowSelected(row);
}

bool TableViewListInterface::selectRow(int row)
{
    TableView* list = table();
    if (!list->maySelectRow(row))
        return false;
    list->selectRowIndexes(TableViewRowSet(row), list->allowsMultipleSelection());
    list->scrollRowToVisible(row);
    return true;
}

bool TableViewListInterface::unselectRow(int row)
{
    const bool isLast = selectedCellCount() == 1;
    if (!isRowSelected(row) || (isLast && !table()->allowsEmptySelection()))
        return false;
    table()->deselectRow(row);
    return true;
}

void TableViewListInterface::modelChange(QAccessibleTableModelChangeEvent* /*event*/)
{
    forgetRows();
}

} // namespace quor::platform
