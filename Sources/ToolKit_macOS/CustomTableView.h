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

/// A `TableView` that reports Return, space, the left and right arrow and double clicks to a
/// delegate, and remembers the row of its context menu until shortly after the menu has closed, so
/// that the chosen action knows which row is meant. Main thread only.
class CustomTableView : public platform::TableView {
    Q_OBJECT

public:
    explicit CustomTableView(QWidget* parent = nullptr);

    /// Weak: may end before the table. Null for none; Return and space are used up also then.
    void setKeyDelegate(CustomTableViewKeyDelegate* keyDelegate);
    [[nodiscard]] CustomTableViewKeyDelegate* keyDelegate() const;

    /// The context menu, not owned; null for none. It opens on a right click, on the menu key, and on
    /// a click with Control held, and selects its row unless that is among the selected ones.
    void setMenu(QMenu* menu);
    [[nodiscard]] QMenu* menu() const { return menu_; }

    /// The row of the context menu that is open, or closed less than 0.2 seconds ago; -1 if it
    /// opened on no row.
    [[nodiscard]] std::optional<int> rowForLastMenu() const { return rowForLastMenu_; }
    /// The row that an action of the context menu is about: `rowForLastMenu()`, else `selectedRow()`.
    [[nodiscard]] int menuRow() const { return rowForLastMenu_.value_or(selectedRow()); }

    /// Selects just this row; `extending` counts only where several may be selected.
    void selectRow(int row, bool extending = false);

    /// Scrolls, over a quarter of a second, until the row is at the upper edge or the content ends.
    void scrollRowToTop(int row);

    /// Reports a double click, as one with the pointer does.
    void performDoubleClick();

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    void openMenu(int row, const QPoint& globalPosition);
    void menuDidClose();

    platform::TrackedPointer<CustomTableViewKeyDelegate> keyDelegate_;
    QPointer<QMenu> menu_;
    std::optional<int> rowForLastMenu_;
    platform::WorkItem forgetRow_;
    QPropertyAnimation scroll_;
};

} // namespace quor::toolkit
