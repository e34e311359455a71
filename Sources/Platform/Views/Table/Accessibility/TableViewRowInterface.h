// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Views/Table/TableViewDelegate.h"

#include <QAccessible>
#include <QAccessibleWidget>
#include <QPointer>

namespace quor::platform {

class TableRowView;
class TableView;

/// A row of a `TableView` as screen readers see it, on the screen or not. While it is on the screen, its
/// only child is the interface of its row view. Invalid when the table has ended or has fewer rows.
class TableViewRowInterface final : public QAccessibleInterface,
                                    public QAccessibleTableCellInterface,
                                    public QAccessibleActionInterface {
public:
    TableViewRowInterface(TableView& table, int row);

    void* interface_cast(QAccessible::InterfaceType type) override;
    [[nodiscard]] bool isValid() const override;
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QWindow* window() const override;
    [[nodiscard]] QAccessibleInterface* parent() const override;
    [[nodiscard]] QAccessibleInterface* child(int index) const override;
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override;
    [[nodiscard]] int childCount() const override;
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override;
    [[nodiscard]] QString text(QAccessible::Text what) const override;
    void setText(QAccessible::Text /*what*/, const QString& /*text*/) override { }
    [[nodiscard]] QRect rect() const override;
    [[nodiscard]] QAccessible::Role role() const override;
    [[nodiscard]] QAccessible::State state() const override;

    [[nodiscard]] bool isSelected() const override;
    [[nodiscard]] QList<QAccessibleInterface*> columnHeaderCells() const override { return {}; }
    [[nodiscard]] QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
    [[nodiscard]] int columnIndex() const override { return 0; }
    [[nodiscard]] int rowIndex() const override { return row_; }
    [[nodiscard]] int columnExtent() const override { return 1; }
    [[nodiscard]] int rowExtent() const override { return 1; }
    [[nodiscard]] QAccessibleInterface* table() const override;

    [[nodiscard]] QStringList actionNames() const override;
    void doAction(const QString& name) override;
    [[nodiscard]] QStringList keyBindingsForAction(const QString& /*name*/) const override { return {}; }

private:
    [[nodiscard]] TableViewRowDescription description() const;

    QPointer<TableView> table_;
    int row_;
};

/// A row view, with the widgets in it, as the child of its `TableViewRowInterface`.
class TableViewRowContentInterface final : public QAccessibleWidget {
public:
    explicit TableViewRowContentInterface(TableRowView& rowView);

    [[nodiscard]] QAccessibleInterface* parent() const override;
};

} // namespace quor::platform
