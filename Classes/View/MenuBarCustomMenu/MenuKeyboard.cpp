// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/MenuKeyboard.h"

#include "ToolKit_macOS/CustomTableView.h"
#include "View/MenuBarCustomMenu/Controls/MenuSearchView.h"

#include <QKeyEvent>

namespace quor::helper {

using platform::TableViewStep;

MenuKeyboard::MenuKeyboard(toolkit::CustomTableView& table, MenuSearchView& searchView)
    : table_(table)
    , searchView_(searchView)
    , typingRelay_(table, searchView)
{
    table.setKeyDelegate(this);
    searchView.keyHandler = [this](const QKeyEvent& event) { return handleSearchKey(event); };
}

void MenuKeyboard::detach()
{
    table_.setKeyDelegate(nullptr);
    searchView_.keyHandler = nullptr;
}

void MenuKeyboard::setSearchRow(int row)
{
    typingRelay_.setSearchRow(row);
}

bool MenuKeyboard::isTyping() const
{
    return searchView_.hasFocus() && !searchView_.text().isEmpty();
}

void MenuKeyboard::giveTo(Receiver receiver, bool wasTyping)
{
    const QWidget* focus = table_.window()->focusWidget();
    const bool isControlOfRow = focus && focus != &searchView_ && focus != &table_
        && table_.isAncestorOf(focus) && focus->isVisibleTo(&table_);
    if (isControlOfRow || typingRelay_.isComposing())
        return;
    if (receiver == Receiver::searchField && table_.rowForView(&searchView_) >= 0) {
        searchView_.setFocus(Qt::OtherFocusReason);
        return;
    }
    table_.setFocus(Qt::OtherFocusReason);
    if (wasTyping && table_.hasFocus())
        typingRelay_.setInterruptsTyping(true);
}

void MenuKeyboard::tableViewDidPressEnter(toolkit::CustomTableView& table, int row)
{
    table.clickRow(row);
}

void MenuKeyboard::tableViewDidPressSpace(toolkit::CustomTableView& table, int row)
{
    table.clickRow(row);
}

void MenuKeyboard::tableViewDidMoveLeft(toolkit::CustomTableView& /*table*/, int row)
{
    arrowPressed(row, -1);
}

void MenuKeyboard::tableViewDidMoveRight(toolkit::CustomTableView& /*table*/, int row)
{
    arrowPressed(row, 1);
}

void MenuKeyboard::tableViewDidDoubleClick(toolkit::CustomTableView& /*table*/, int /*row*/) { }

bool MenuKeyboard::handleSearchKey(const QKeyEvent& event)
{
    if (typingRelay_.isComposing())
        return event.text().isEmpty() || !event.text().at(0).isPrint(); // the input method's, not the rows'
    if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier)
        return false;
    switch (event.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        table_.clickRow(table_.selectedRow());
        return true;
    case Qt::Key_Down:
        walkFromSearch(TableViewStep::down);
        return true;
    case Qt::Key_Up:
        walkFromSearch(TableViewStep::up);
        return true;
    case Qt::Key_PageDown:
        walkFromSearch(TableViewStep::pageDown);
        return true;
    case Qt::Key_PageUp:
        walkFromSearch(TableViewStep::pageUp);
        return true;
    default:
        return searchView_.text().isEmpty() && handleKeyOfEmptySearch(event.key());
    }
}

// The caret has nowhere to go.
bool MenuKeyboard::handleKeyOfEmptySearch(int key)
{
    switch (key) {
    case Qt::Key_Home:
        table_.walk(TableViewStep::first);
        return true;
    case Qt::Key_End:
        table_.walk(TableViewStep::last);
        return true;
    case Qt::Key_Left:
        arrowPressed(table_.selectedRow(), -1);
        return true;
    case Qt::Key_Right:
        arrowPressed(table_.selectedRow(), 1);
        return true;
    default:
        return false;
    }
}

void MenuKeyboard::walkFromSearch(TableViewStep step)
{
    const bool begins = table_.selectedRow() < 0;
    if (begins)
        table_.selectRow(typingRelay_.fieldRow());
    if (!table_.walk(step) && begins)
        table_.deselectAll();
}

} // namespace quor::helper
