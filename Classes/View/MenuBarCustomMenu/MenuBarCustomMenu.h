// SPDX-License-Identifier: MIT
#pragma once

#include "InterAppCommBridge/MenuEntry.h"
#include "Platform/Lifetime/Callback.h"
#include "Platform/Services/Clock.h"
#include "ToolKit/Deferred/DelayedAction.h"
#include "ToolKit_macOS/CustomTableView.h"
#include "View/MenuBarCustomMenu/Controls/MenuSearchView.h"
#include "View/MenuBarCustomMenu/MenuKeyboard.h"
#include "View/MenuBarCustomMenu/MenuRowMeasurer.h"
#include "View/MenuBarCustomMenu/MenuRowProvider.h"

#include <QWidget>

#include <map>
#include <optional>
#include <vector>

namespace quor::helper {

/// The content of the pop-up menu: one scrolling column of rows. The pointer selects the row below it, the
/// arrow keys walk through the rows, and the caret stays in the search field meanwhile. The menu makes no
/// decisions: rows come in through `dataList`, and choices leave through the handlers.
///
///     menu.dataList = rows;
///     menu.reload(); // sizes the menu, and calls resizedHandler
///
/// It paints no background, and leaves Escape to its window. A handler may delete the menu, replace its
/// rows or call `cleanup`. Main thread only.
class MenuBarCustomMenu final : public QWidget {
    Q_OBJECT

public:
    /// Without `showSearch` a `Search` row takes no room. `minWidth` is in device-independent pixels.
    /// `clock` must outlive the menu.
    MenuBarCustomMenu(
        bool showSearch, double minWidth, const platform::Clock& clock, QWidget* parent = nullptr);
    ~MenuBarCustomMenu() override;

    /// Called after each `reload` and `resizeToFit`, also if the size is the same as before.
    platform::Callback<void()> resizedHandler;
    /// A row of any kind was chosen, by a click or a key.
    platform::Callback<void(const MenuEntry& entry)> entryClicked;
    /// The start of the task's timer is to be moved; 0 minutes: to the end of the entry before.
    platform::Callback<void(const QString& taskID, int minutes)> adjustStartHandler;
    /// The task's timer is to be stopped so many minutes from now; negative is the past.
    platform::Callback<void(const QString& taskID, int minutes)> adjustedStopHandler;
    /// The text of the search field in lower case, 0.2 seconds after its last change.
    platform::Callback<void(const QString& term)> searchTermChangedHandler;

    /// Takes effect with `reload`, which must follow before control returns to the event loop.
    std::vector<MenuEntry> dataList;
    /// Storage for the owner, which the menu only empties in `cleanup`.
    std::map<QString, double> adjustedStopTimePerTaskID;

    /// Shows `dataList`. The selected row number stays, as do text, caret and composition of the search
    /// field. The keyboard goes to the search field if no row was selected, else to the table, where typed
    /// text still lands in the field; a control of a row that has the keyboard keeps it.
    void reload();
    /// Sizes the menu to its rows: from `minWidth` to 500 wide, and at most 0.9 times as high as the main
    /// screen's visible frame.
    void resizeToFit();
    /// Clears the handlers and the rows, and cancels a pending search. The menu looks as before, and reacts
    /// to nothing any more.
    void cleanup();

    [[nodiscard]] MenuSearchView& searchView() { return searchView_; }
    [[nodiscard]] toolkit::CustomTableView& tableView() { return tableView_; }

protected:
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void setUpTable();
    void setUpSearch();
    void connectRows();
    void search();

    const int minWidth_;
    MenuRowMeasurer measurer_;
    std::optional<int> width_; ///< that the rows need; absent until they are measured
    toolkit::CustomTableView tableView_;
    MenuSearchView searchView_; ///< a child of the table's widgets while shown, so it must be destroyed first
    MenuRowProvider rowProvider_;
    MenuKeyboard keyboard_;
    toolkit::DelayedAction delayedSearchAction_;
};

} // namespace quor::helper
