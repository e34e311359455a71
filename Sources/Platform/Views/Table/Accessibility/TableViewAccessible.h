// SPDX-License-Identifier: MIT
#pragma once

namespace quor::platform {

class TableView;

/// What a `TableView` tells screen readers: a list whose rows are all there, each made when asked for.
namespace tableViewAccessibility {

/// Makes Qt find the interfaces. Harmless if done again.
void install();

void rowsDidChange(TableView& table);
/// `before` was the selected row. With `leads`, the selected row has the user's attention.
void selectionDidChange(TableView& table, int before, bool leads);

} // namespace tableViewAccessibility

} // namespace quor::platform
