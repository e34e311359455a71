// SPDX-License-Identifier: MIT
#pragma once

namespace quor::platform {

class TableView;

/// Presents a `TableView` to screen readers: as a list of all rows, also of those without widgets.
namespace tableViewAccessibility {

/// Makes Qt find the interfaces of tables and row views. Has no effect when called again.
void install();

/// Notifies screen readers that the table was reloaded.
void rowsDidChange(TableView& table);
/// Notifies screen readers of the selection; `previousRow` was the `selectedRow()`. With `hasAttention`, they
/// also read the `selectedRow()` as if it had the keyboard focus.
void selectionDidChange(TableView& table, int previousRow, bool hasAttention);

} // namespace tableViewAccessibility

} // namespace quor::platform
