// SPDX-License-Identifier: MIT
// What the user does with pointer and keys.
#include "View/MenuBarCustomMenu/MenuBarCustomMenu.h"

#include <QKeyEvent>

#include <utility>
#include <variant>

namespace quor::helper {

namespace {

using platform::TableViewStep;

/// The task of a running row; null for other rows.
const QString* runningTask(const MenuEntry* item)
{
    const auto* entry = item ? std::get_if<MenuEntry::Entry>(&item->value) : nullptr;
    const auto* stop = entry ? std::get_if<MenuEntry::Entry::Action::Stop>(&entry->action.value) : nullptr;
    return stop ? &stop->taskID : nullptr;
}

} // namespace

void MenuBarCustomMenu::pointerDidHoverRow(platform::TableView& table, int row)
{
    if (row >= 0 && row == table.selectedRow())
        return;
    if (shouldSelectRow(table, row))
        tableView_.selectRow(row);
    else
        tableView_.deselectAll();
}

void MenuBarCustomMenu::didClickRow(platform::TableView& /*table*/, int row)
{
    choose(row);
}

void MenuBarCustomMenu::choose(int row)
{
    const MenuEntry* item = entryAt(row);
    if (!item)
        return;
    const MenuEntry chosen = *item; // the handler may replace the rows
    if (const auto handler = entryClicked)
        handler(chosen);
}

void MenuBarCustomMenu::adjustStart(int row, int minutes)
{
    const QString* task = runningTask(entryAt(row));
    if (!task)
        return;
    const QString taskID = *task;
    if (const auto handler = adjustStartHandler)
        handler(taskID, minutes);
}

void MenuBarCustomMenu::tableViewDidPressEnter(toolkit::CustomTableView& /*table*/, int row)
{
    choose(row);
}

void MenuBarCustomMenu::tableViewDidPressSpace(toolkit::CustomTableView& /*table*/, int row)
{
    choose(row);
}

void MenuBarCustomMenu::tableViewDidMoveLeft(toolkit::CustomTableView& /*table*/, int row)
{
    adjustStart(row, -1);
}

void MenuBarCustomMenu::tableViewDidMoveRight(toolkit::CustomTableView& /*table*/, int row)
{
    adjustStart(row, 1);
}

void MenuBarCustomMenu::tableViewDidDoubleClick(toolkit::CustomTableView& /*table*/, int /*row*/) { }

bool MenuBarCustomMenu::handleSearchKey(QKeyEvent& event)
{
    const bool isPlain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (typingRelay_.isComposing())
        return event.text().isEmpty() || !event.text().at(0).isPrint(); // its own: not the rows'
    if (!isPlain)
        return false;
    switch (event.key()) {
    case Qt::Key_Escape:
        window()->close();
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        choose(tableView_.selectedRow());
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

bool MenuBarCustomMenu::handleKeyOfEmptySearch(int key)
{
    // The caret has nowhere to go, so the keys are the rows'.
    switch (key) {
    case Qt::Key_Home:
        tableView_.walk(TableViewStep::first);
        return true;
    case Qt::Key_End:
        tableView_.walk(TableViewStep::last);
        return true;
    case Qt::Key_Left:
        adjustStart(tableView_.selectedRow(), -1);
        return true;
    case Qt::Key_Right:
        adjustStart(tableView_.selectedRow(), 1);
        return true;
    default:
        return false;
    }
}

void MenuBarCustomMenu::walkFromSearch(TableViewStep step)
{
    const bool begins = tableView_.selectedRow() < 0;
    if (begins)
        tableView_.selectRow(searchRow_);
    if (!tableView_.walk(step) && begins)
        tableView_.deselectAll();
}

void MenuBarCustomMenu::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        window()->close();
    else
        QWidget::keyPressEvent(event);
}

} // namespace quor::helper
