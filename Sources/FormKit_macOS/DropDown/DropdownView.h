// SPDX-License-Identifier: MIT
#pragma once

#include "FormKit_macOS/Controls/SearchField.h"
#include "FormKit_macOS/DropDown/DropdownIndex.h"
#include "FormKit_macOS/DropDown/DropdownItems.h"
#include "FormKit_macOS/DropDown/DropdownRows.h"
#include "Platform/Concurrency/DispatchQueue.h"
#include "Platform/Concurrency/MainQueue.h"
#include "ToolKit_macOS/CustomTableView.h"
#include "ToolKit_macOS/SyncSpinner.h"

#include <QWidget>

namespace quor::formkit {

/// The list of a drop-down: a column of items, below a search field if there are many. The items are fixed.
///
/// The search runs on a thread of its own, 0.2 seconds after the last change of the text, so that typing
/// never waits for it. While the search field has the keyboard, the arrow and page keys walk through the rows
/// and Return chooses. Main thread only.
class DropdownView final : public QWidget, private toolkit::CustomTableViewKeyDelegate {
    Q_OBJECT

public:
    /// Whether a list of so many items has a search field.
    [[nodiscard]] static bool showsSearch(std::size_t count) { return count > mostWithoutSearch; }

    DropdownView(const DropdownItems& items, std::optional<int> selectedIndex, int minWidth);
    ~DropdownView() override;

    /// Null for a short list.
    [[nodiscard]] SearchField* searchField() const { return searchField_; }
    /// What gets the keyboard.
    [[nodiscard]] QWidget& keyboardReceiver();

    /// As wide as the items need, from the least width to 500, and at most `maxHeight` high.
    [[nodiscard]] QSize fittingSize(int maxHeight) const;

Q_SIGNALS:
    /// The user has chosen an item, the first one that is equal to that of the row. May delete this object
    /// later, but not at once.
    void selectionChanged(int index);
    /// `fittingSize` may have changed.
    void resized();

protected:
    void showEvent(QShowEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    static constexpr std::size_t mostWithoutSearch = 20;
    static constexpr int topPadding = 5;

    void addSearch();
    void searchSoon();
    void search();
    void cancelSearch();
    void showAll();
    void showFound(std::vector<int> found, const QString& searched);
    void reload(bool isUniform);
    void showSelectedRow();
    void choose(const FormItem& item);
    [[nodiscard]] int contentWidth(const DropdownItems::List& widest) const;

    void tableViewDidPressEnter(toolkit::CustomTableView& table, int row) override;
    void tableViewDidPressSpace(toolkit::CustomTableView& table, int row) override;
    void tableViewDidMoveLeft(toolkit::CustomTableView&, int) override { }
    void tableViewDidMoveRight(toolkit::CustomTableView&, int) override { }
    void tableViewDidDoubleClick(toolkit::CustomTableView&, int) override { }

    const std::shared_ptr<const DropdownItems::List> formItems_;
    const bool hasSeparators_;
    const int rowHeight_;
    DropdownRows dataList_;
    toolkit::CustomTableView* tableView_;
    SearchField* searchField_ = nullptr;
    toolkit::SyncSpinner* loadingSpinner_ = nullptr;
    int width_; ///< that the items need
    platform::WorkItem delayedReload_;
    DropdownIndex index_; ///< Used on `accessQueue_` alone.
    /// Of the search that runs; null if none does.
    std::shared_ptr<std::atomic<bool>> isCancelled_;
    platform::DispatchQueue accessQueue_{QByteArrayLiteral("Dropdown")};
};

} // namespace quor::formkit
