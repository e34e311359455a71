// SPDX-License-Identifier: MIT
#include "Platform/Views/Table/Accessibility/TableViewRowInterface.h"

#include "Platform/Views/Table/TableView.h"

namespace quor::platform {

TableViewRowInterface::TableViewRowInterface(TableView& table, int row)
    : table_(&table)
    , row_(row)
{
}

void* TableViewRowInterface::interface_cast(QAccessible::InterfaceType type)
{
    if (type == QAccessible::TableCellInterface)
        return static_cast<QAccessibleTableCellInterface*>(this);
    if (type == QAccessible::ActionInterface)
        return static_cast<QAccessibleActionInterface*>(this);
    return nullptr;
}

bool TableViewRowInterface::isValid() const
{
    return table_ && row_ < table_->numberOfRows();
}

QWindow* TableViewRowInterface::window() const
{
    return table_ ? table_->window()->windowHandle() : nullptr;
}

QAccessibleInterface* TableViewRowInterface::parent() const
{
    return table();
}

QAccessibleInterface* TableViewRowInterface::table() const
{
    return QAccessible::queryAccessibleInterface(table_);
}

int TableViewRowInterface::childCount() const
{
    return table_ && table_->viewAtRow(row_) ? 1 : 0;
}

QAccessibleInterface* TableViewRowInterface::child(int index) const
{
    const bool isThere = index == 0 && childCount() == 1;
    return isThere ? QAccessible::queryAccessibleInterface(table_->rowViewAtRow(row_)) : nullptr;
}

int TableViewRowInterface::indexOfChild(const QAccessibleInterface* child) const
{
    return child && table_ && child->object() && child->object() == table_->rowViewAtRow(row_) ? 0 : -1;
}

QAccessibleInterface* TableViewRowInterface::childAt(int x, int y) const
{
    return rect().contains(x, y) ? child(0) : nullptr;
}

TableViewRowDescription TableViewRowInterface::description() const
{
    const TableViewDelegate* delegate = isValid() ? table_->delegate() : nullptr;
    return delegate ? delegate->describeRow(*table_, row_) : TableViewRowDescription{};
}

QString TableViewRowInterface::text(QAccessible::Text what) const
{
    return what == QAccessible::Name ? description().text : QString();
}

QRect TableViewRowInterface::rect() const
{
    if (!isValid())
        return {};
    const QRect inViewport = table_->viewportRectOfRow(row_);
    return {table_->viewport()->mapToGlobal(inViewport.topLeft()), inViewport.size()};
}

QAccessible::Role TableViewRowInterface::role() const
{
    return description().role;
}

QAccessible::State TableViewRowInterface::state() const
{
    QAccessible::State state;
    if (!isValid()) {
        state.invalid = true;
        return state;
    }
    const TableViewRowDescription row = description();
    state.selectable = state.focusable = table_->maySelectRow(row_);
    state.selected = isSelected();
    state.multiSelectable = table_->allowsMultipleSelection();
    state.focused = table_->selectedRow() == row_;
    state.disabled = !row.isEnabled;
    state.checkable = row.isChecked.has_value();
    state.checked = row.isChecked.value_or(false);
    state.invisible = !table_->isVisible();
    state.offscreen = !table_->visibleRect().intersects(table_->rectOfRow(row_));
    return state;
}

bool TableViewRowInterface::isSelected() const
{
    return isValid() && table_->isRowSelected(row_);
}

QStringList TableViewRowInterface::actionNames() const
{
    const bool isPressable = isValid() && table_->maySelectRow(row_) && description().isEnabled;
    return isPressable ? QStringList{pressAction()} : QStringList();
}

void TableViewRowInterface::doAction(const QString& name)
{
    if (name == pressAction() && actionNames().contains(name))
        table_->clickRow(row_);
}

TableViewRowContentInterface::TableViewRowContentInterface(TableRowView& rowView)
    : QAccessibleWidget(&rowView, QAccessible::Grouping)
{
}

QAccessibleInterface* TableViewRowContentInterface::parent() const
{
    for (QWidget* above = widget()->parentWidget(); above; above = above->parentWidget())
        if (auto* table = qobject_cast<TableView*>(above)) {
            QAccessibleInterface* list = QAccessible::queryAccessibleInterface(table);
            const int row = table->rowForView(widget());
            return row < 0 ? list : list->child(row);
        }
    return QAccessibleWidget::parent();
}

} // namespace quor::platform
