// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/DropDown/DropdownItems.h"
#include "Platform/Lifetime/Callback.h"
#include "Platform/Views/Table/TableViewDataSource.h"
#include "Platform/Views/Table/TableViewDelegate.h"

#include <optional>
#include <vector>

namespace quor::formkit {

/// The rows of a drop-down's list: all items, or those that were found. Makes the widgets of the rows that
/// can be seen, and selects the row to which the pointer is moved. Main thread only.
class DropdownRows final : public platform::TableViewDataSource, public platform::TableViewDelegate {
public:
    /// `selectedIndex` is that of the item with the check mark.
    DropdownRows(
        std::shared_ptr<const DropdownItems::List> items, std::optional<int> selectedIndex, int rowHeight);

    /// The user has chosen an item that is enabled. May end this object and the table.
    platform::Callback<void(const FormItem& item)> chosen;

    void showAll();
    /// `found` has indexes in ascending order; `searched` is the folded text that they were found by.
    void showFound(std::vector<int> found, const QString& searched);

    [[nodiscard]] bool isEmpty() const { return count() == 0; }
    /// The row with the check mark, if it is shown and the user may choose it.
    [[nodiscard]] std::optional<int> selectedRow() const;

    [[nodiscard]] int numberOfRows(const platform::TableView& table) const override;
    [[nodiscard]] QWidget* viewForRow(platform::TableView& table, int row) override;
    [[nodiscard]] platform::TableRowView* rowViewForRow(platform::TableView& table, int row) override;
    [[nodiscard]] int heightOfRow(const platform::TableView& table, int row) const override;
    [[nodiscard]] bool shouldSelectRow(const platform::TableView& table, int row) const override;
    [[nodiscard]] platform::TableViewRowDescription describeRow(
        const platform::TableView& table, int row) const override;
    void didClickRow(platform::TableView& table, int row) override;
    void pointerDidHoverRow(platform::TableView& table, int row) override;
    void pointerDidLeave(platform::TableView& table) override;

private:
    [[nodiscard]] int count() const { return int(found_ ? found_->size() : items_->size()); }
    [[nodiscard]] int indexAt(int row) const { return found_ ? (*found_)[std::size_t(row)] : row; }
    [[nodiscard]] const FormItem& itemAt(int row) const { return (*items_)[std::size_t(indexAt(row))]; }

    const std::shared_ptr<const DropdownItems::List> items_;
    const std::optional<int> selectedIndex_;
    const int rowHeight_;
    std::optional<std::vector<int>> found_;
    QString searched_;
};

} // namespace quor::formkit
