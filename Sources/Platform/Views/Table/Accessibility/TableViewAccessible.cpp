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

void tell(TableView& table, QAccessible::Event what, int row)
{
    if (row < 0 || row >= table.numberOfRows())
        return;
    QAccessibleEvent event(&table, what);
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

void selectionDidChange(TableView& table, int before, bool leads)
{
    if (!QAccessible::isActive())
        return;
    if (before != table.selectedRow())
        tell(table, QAccessible::Selection, before);
    tell(table, QAccessible::Selection, table.selectedRow());
    QAccessibleEvent within(&table, QAccessible::SelectionWithin);
    QAccessible::updateAccessibility(&within);
    if (leads)
        tell(table, QAccessible::Focus, table.selectedRow());
}

} // namespace quor::platform::tableViewAccessibility
