// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Callback.h"
#include "Platform/Views/Table/TableView.h"
#include "ToolKit_macOS/CustomTableViewKeyDelegate.h"
#include "View/MenuBarCustomMenu/MenuTypingRelay.h"

class QKeyEvent;

namespace quor::toolkit {
class CustomTableView;
}

namespace quor::helper {

class MenuSearchView;

/// The keyboard of a menu: decides whether the search field or the table has it, and what the keys do.
///
/// In the search field, the arrows up and down and the page keys walk through the rows, and Return chooses
/// the selected row; while the field is empty, Home, End and the arrows left and right also act on the
/// rows. All other keys edit the text. In the table, typed text goes to the search field (see
/// `MenuTypingRelay`). While an input method composes a text, it gets all keys. Escape is left to the
/// window. Main thread only.
class MenuKeyboard final : public toolkit::CustomTableViewKeyDelegate {
public:
    /// Becomes the table's key delegate and the field's key handler. Borrows both, which must outlive it.
    MenuKeyboard(toolkit::CustomTableView& table, MenuSearchView& searchView);

    /// Left (-1) or right (1) was pressed with this row selected; -1 if no row is. A chosen row is reported
    /// by the table, as a click on it.
    platform::Callback<void(int row, int minutes)> arrowPressed;

    /// A row that shows the search field when the user scrolls there; -1 if no row does, and then typing in
    /// the table selects rows.
    void setSearchRow(int row);

    /// Returns whether the search field has the keyboard and contains text.
    [[nodiscard]] bool isTyping() const;

    enum class Receiver { searchField, table };
    /// Gives the keyboard to the receiver, or to the table if the search field is not on the screen. Has no
    /// effect while a control of a row has the keyboard, or an input method composes a text. `wasTyping` is
    /// `isTyping` before the rows changed, which may have taken the keyboard from the field: then a space
    /// in the table continues the text.
    void giveTo(Receiver receiver, bool wasTyping);

    /// Stops handling keys, for good.
    void detach();

    void tableViewDidPressEnter(toolkit::CustomTableView& table, int row) override;
    void tableViewDidPressSpace(toolkit::CustomTableView& table, int row) override;
    void tableViewDidMoveLeft(toolkit::CustomTableView& table, int row) override;
    void tableViewDidMoveRight(toolkit::CustomTableView& table, int row) override;
    void tableViewDidDoubleClick(toolkit::CustomTableView& table, int row) override; ///< Has no effect.

private:
    [[nodiscard]] bool handleSearchKey(const QKeyEvent& event);
    [[nodiscard]] bool handleKeyOfEmptySearch(int key);
    void walkFromSearch(platform::TableViewStep step);

    toolkit::CustomTableView& table_;
    MenuSearchView& searchView_;
    MenuTypingRelay typingRelay_;
};

} // namespace quor::helper
