// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenuEntry.h"
#include "Platform/Services/Clock.h"
#include "Platform/Views/Table/TableViewDataSource.h"
#include "Platform/Views/Table/TableViewDelegate.h"
#include "ToolKit/Deferred/DelayedAction.h"
#include "ToolKit_macOS/CustomTableView.h"
#include "ToolKit_macOS/CustomTableViewKeyDelegate.h"
#include "View/MenuBarCustomMenu/Controls/MenuSearchView.h"
#include "View/MenuBarCustomMenu/MenuRowMeasurer.h"
#include "View/MenuBarCustomMenu/MenuTypingRelay.h"

#include <QWidget>

#include <functional>
#include <map>
#include <optional>
#include <vector>

namespace quor::helper {

/// The content of the pop-up menu: one scrolling column of rows, which the pointer selects by moving
/// and the arrow keys by walking, while the caret stays in the search field. It decides nothing: rows
/// come in through `dataList`, choices leave through the handlers.
///
///     menu.dataList = rows;
///     menu.reload(); // sizes the menu, and tells so through resizedHandler
///
/// The menu draws no ground of its own. A handler may end the menu, replace its rows or call
/// `cleanup`; one that is not set does nothing. Main thread only.
class MenuBarCustomMenu final : public QWidget,
                                public platform::TableViewDataSource,
                                public platform::TableViewDelegate,
                                public toolkit::CustomTableViewKeyDelegate {
    Q_OBJECT

public:
    /// Without `showSearch` a `search` row takes no room. `minWidth` in device-independent pixels.
    /// `clock` must outlive the menu.
    MenuBarCustomMenu(
        bool showSearch, double minWidth, const platform::Clock& clock, QWidget* parent = nullptr);
    ~MenuBarCustomMenu() override;

    /// After each resize, also one that led to the same size.
    std::function<void()> resizedHandler;
    /// A row was chosen by click or key; any kind of row.
    std::function<void(const MenuEntry& entry)> entryClicked;
    std::function<void(const QString& taskID, int minutes)> adjustStartHandler;
    std::function<void(const QString& taskID, int minutes)> adjustedStopHandler;
    /// In lower case, 0.2 seconds after the last change of the text.
    std::function<void(const QString& term)> searchTermChangedHandler;

    /// Takes effect with `reload`, which must follow before the event loop turns.
    std::vector<MenuEntry> dataList;
    /// For whoever keeps moments per task while the menu is there; emptied by `cleanup`.
    std::map<QString, double> adjustedStopTimePerTaskID;

    /// Shows `dataList`. The selection stays by index, text, caret and a composition in the search
    /// field stay as they are. The keyboard goes to the search field if no row was selected, else to
    /// the table, whose typed text still lands in the field; a composition or a row's own control
    /// keeps it.
    void reload();
    /// Sizes the menu to its rows: as wide as they need from `minWidth` to 500, and as high up to 0.9
    /// of the main screen's visible frame.
    void resizeToFit();
    /// Drops the handlers, the rows, and what is pending. The menu stays on the screen as it is, and
    /// reacts to nothing.
    void cleanup();

    [[nodiscard]] MenuSearchView& searchView() { return searchView_; }
    [[nodiscard]] toolkit::CustomTableView& tableView() { return tableView_; }
    /// The height of an `entry` row, as of the last resize.
    [[nodiscard]] double cellHeight() const { return measurer_.cellHeight(); }

    // The table's questions.
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

    void tableViewDidPressEnter(toolkit::CustomTableView& table, int row) override;
    void tableViewDidPressSpace(toolkit::CustomTableView& table, int row) override;
    void tableViewDidMoveLeft(toolkit::CustomTableView& table, int row) override;
    void tableViewDidMoveRight(toolkit::CustomTableView& table, int row) override;
    void tableViewDidDoubleClick(toolkit::CustomTableView& table, int row) override; ///< nothing

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    [[nodiscard]] const MenuEntry* entryAt(int row) const;
    [[nodiscard]] QWidget* viewFor(const MenuEntry::Entry& entry);
    [[nodiscard]] QWidget* viewFor(const MenuEntry::AdjustStart& entry);
    [[nodiscard]] QWidget* viewFor(const MenuEntry::StopPast& entry);
    [[nodiscard]] QWidget* viewFor(const MenuEntry::Separator& entry);
    [[nodiscard]] QWidget* viewForSearch(int row);

    void setUpTable();
    void setUpSearch();
    void giveFocus(bool toSearch);
    void choose(int row);
    void adjustStart(int row, int minutes);
    void searchTextChanged();
    void search();

    [[nodiscard]] bool handleSearchKey(QKeyEvent& event);
    [[nodiscard]] bool handleKeyOfEmptySearch(int key);
    void walkFromSearch(platform::TableViewStep step);

    const platform::Clock& clock_;
    const bool showSearch_;
    const int minWidth_;
    MenuRowMeasurer measurer_;
    std::optional<int> width_; ///< that the rows want; absent while they are not measured
    int searchRow_ = -1; ///< the first one; -1 for none
    toolkit::CustomTableView tableView_;
    MenuSearchView searchView_; ///< while shown, inside the table's widgets: ends before them
    MenuTypingRelay typingRelay_;
    toolkit::DelayedAction delayedSearchAction_;
};

} // namespace quor::helper
