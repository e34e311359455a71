// SPDX-License-Identifier: MIT
#include "Platform/Views/Table/Accessibility/TableViewAccessible.h"

#include "Platform/Views/Table/Accessibility/TableViewListInterface.h"
#include "Platform/Views/Table/Accessibility/TableViewRowInterface.h"
#include "Platform/Views/Table/TableView.h"

namespace quor::platform::tableViewAccessibility {

namespace {

QAccessibleInterface* makeInterface(const QString& className, QObject* object)
{
    if (className == QLatin1String(TableView::staticMetaObject.className()))
        return new TableViewListInterface(*static_cast<TableView*>(object));
    if (className == QLatin1String(TableRowView::staticMetaObject.className()))
        return new TableViewRowContentInterface(*static_cast<TableRowView*>(object));
    return nullptr;
}

void notify(TableView& table, QAccessible::Event type, int row)
{
    if (row < 0 || row >= table.numberOfRows())
        return;
    QAccessibleEvent event(&table, type);
    event.setChild(row);
    QAccessible::updateAccessibility(&event);
}

} // namespace

void install()
{
    QAccessible::installFactory(makeInterface);
}

void rowsDidChange(TableView& table)
{
    if (!QAccessible::isActive())
        return;
    QAccessibleTableModelChangeEvent event(&table, QAccessibleTableModelChangeEvent::ModelReset);
    QAccessible::updateAccessibility(&event);
}

void selectionDidChange(TableView& table, int previousRow, bool hasAttention)
{
    if (!QAccessible::isActive())
        return;
    if (previousRow != table.selectedRow())
        notify(table, QAccessible::Selection, previousRow);
    notify(table, QAccessible::Selection, table.selectedRow());
    QAccessibleEvent within(&table, QAccessible::SelectionWithin);
    QAccessible::updateAccessibility(&within);
    if (hasAttention)
        notify(table, QAccessible::Focus, table.selectedRow());
}

} // namespace quor::platform::tableViewAccessibility
