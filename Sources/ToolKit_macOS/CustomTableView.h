// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Concurrency/MainQueue.h"
#include "Platform/Views/Table/TableView.h"
#include "ToolKit_macOS/CustomTableViewKeyDelegate.h"

#include <QMenu>
#include <QPointer>
#include <QPropertyAnimation>

#include <optional>

namespace quor::toolkit {

/// A `TableView` with a context menu, which reports Return, the space bar, the left and right arrow keys
/// and double clicks to a delegate. Remembers the row of the context menu until shortly after the menu has
/// closed, so that the chosen action knows its row. Main thread only.
class CustomTableView : public platform::TableView {
    Q_OBJECT

public:
    explicit CustomTableView(QWidget* parent = nullptr);

    /// The delegate is held weakly, and may end before the table. Null removes it. Return, the space bar
    /// and both arrow keys are accepted also without a delegate; they have no effect then.
    void setKeyDelegate(CustomTableViewKeyDelegate* keyDelegate);
    [[nodiscard]] CustomTableViewKeyDelegate* keyDelegate() const;

    /// The context menu, borrowed and held weakly; null removes it. It opens by a right click, by the menu
    /// key and by a click with Control, and its row is selected, unless the row already is.
    void setMenu(QMenu* menu);

    /// The row of the context menu that is open, or was closed, removed or destroyed less than 0.2 seconds
    /// ago; -1 if the menu was opened outside the rows. A table without a menu remembers the row of a request
    /// for as long as a menu that an ancestor opens for it. Returns `nullopt` at any other time.
    [[nodiscard]] std::optional<int> rowForLastMenu() const { return rowForLastMenu_; }
    /// The row to which an action of the context menu applies: `rowForLastMenu()` unless it is `nullopt`,
    /// otherwise `selectedRow()`.
    [[nodiscard]] int menuRow() const { return rowForLastMenu_.value_or(selectedRow()); }

    /// Selects this row, also if the user must not select it: alone, or with `extending` in addition, if
    /// several rows can be selected. Selecting a row alone that does not exist deselects all rows.
    void selectRow(int row, bool extending = false);

    /// Scrolls within a quarter of a second until the row is at the upper edge of the viewport, or as far as
    /// the content goes. Ends when the user scrolls or presses a key. Ignored if there is no such row.
    void scrollRowToTop(int row);

    /// Reports a double click on the selected row to the key delegate.
    void performDoubleClick();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void openMenu(int row, const QPoint& globalPosition);
    void waitForOtherMenu();
    void menuDidClose();

    platform::TrackedPointer<CustomTableViewKeyDelegate> keyDelegate_;
    QPointer<QMenu> menu_;
    std::optional<int> rowForLastMenu_;
    platform::WorkItem forgetRow_;
    QPropertyAnimation scroll_;
};

} // namespace quor::toolkit
