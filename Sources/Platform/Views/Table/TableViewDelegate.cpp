// SPDX-License-Identifier: MIT
#include "Platform/Views/Table/TableViewDelegate.h"

namespace quor::platform {

TableRowView* TableViewDelegate::rowViewForRow(TableView& /*table*/, int /*row*/)
{
    return nullptr;
}

int TableViewDelegate::heightOfRow(const TableView& /*table*/, int /*row*/) const
{
    constexpr int oneLine = 20;
    return oneLine;
}

bool TableViewDelegate::shouldSelectRow(const TableView& /*table*/, int /*row*/) const
{
    return true;
}

QString TableViewDelegate::typeSelectString(const TableView& /*table*/, int /*row*/) const
{
    return {};
}

TableViewRowDescription TableViewDelegate::describeRow(const TableView& table, int row) const
{
    return {.text = typeSelectString(table, row), .isChecked = {}};
}

void TableViewDelegate::selectionDidChange(TableView& /*table*/) { }

void TableViewDelegate::didClickRow(TableView& /*table*/, int /*row*/) { }

void TableViewDelegate::pointerDidHoverRow(TableView& /*table*/, int /*row*/) { }

void TableViewDelegate::pointerDidLeave(TableView& /*table*/) { }

} // namespace quor::platform
