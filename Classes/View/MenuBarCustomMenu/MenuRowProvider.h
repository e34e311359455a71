// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenuEntry.h"
#include "Platform/Lifetime/Callback.h"
#include "Platform/Services/Clock.h"
#include "Platform/Views/Table/TableViewDataSource.h"
#include "Platform/Views/Table/TableViewDelegate.h"

#include <QString>

#include <vector>

namespace quor::helper {

class MenuRowMeasurer;
class MenuSearchView;

/// The data source and delegate of a menu's table: creates the row widgets, answers what the table asks
/// about rows, and selects the row to which the pointer was moved. Of several `Search` rows, the last one on
/// the screen shows the search field; the others stay empty.
///
/// The table is the only caller of the overridden functions. A row number outside the list of rows has
/// height 0 and no widget, and cannot be selected. A handler may replace the rows, and may delete the
/// menu. Main thread only.
class MenuRowProvider final : public platform::TableViewDataSource, public platform::TableViewDelegate {
public:
    /// Borrows its arguments, which must outlive it. `searchView` is null for a menu without a search
    /// field, whose `Search` rows have height 0.
    MenuRowProvider(const std::vector<MenuEntry>& rows, const MenuRowMeasurer& measurer,
        MenuSearchView* searchView, const platform::Clock& clock);

    /// A row of any kind was clicked, in its cell or beside it.
    platform::Callback<void(const MenuEntry& entry)> entryClicked;
    /// A button of an `AdjustStart` row was clicked.
    platform::Callback<void(const QString& taskID, int minutes)> startAdjusted;
    /// The stop button of a `StopPast` row was clicked.
    platform::Callback<void(const QString& taskID, int minutes)> stopAdjusted;

    /// Returns null for a row number outside the list of rows.
    [[nodiscard]] const MenuEntry* entryAt(int row) const;

    /// The first `Search` row; -1 if there is none, or in a menu without a search field.
    [[nodiscard]] int searchRow() const;

    [[nodiscard]] int numberOfRows(const platform::TableView& table) const override;
    [[nodiscard]] QWidget* viewForRow(platform::TableView& table, int row) override;
    [[nodiscard]] platform::TableRowView* rowViewForRow(platform::TableView& table, int row) override;
    [[nodiscard]] int heightOfRow(const platform::TableView& table, int row) const override;
    [[nodiscard]] bool shouldSelectRow(const platform::TableView& table, int row) const override;
    [[nodiscard]] QString typeSelectString(const platform::TableView& table, int row) const override;
    [[nodiscard]] platform::TableViewRowDescription describeRow(
        const platform::TableView& table, int row) const override;
    void didClickRow(platform::TableView& table, int row) override;
    void pointerDidHoverRow(platform::TableView& table, int row) override;

private:
    [[nodiscard]] QWidget* viewFor(platform::TableView& table, const MenuEntry::Entry& entry);
    [[nodiscard]] QWidget* viewFor(platform::TableView& table, const MenuEntry::AdjustStart& entry);
    [[nodiscard]] QWidget* viewFor(platform::TableView& table, const MenuEntry::StopPast& entry);
    [[nodiscard]] QWidget* viewForSearch(const platform::TableView& table, int row);

    const std::vector<MenuEntry>& rows_;
    const MenuRowMeasurer& measurer_;
    MenuSearchView* searchView_;
    const platform::Clock& clock_;
};

} // namespace quor::helper
