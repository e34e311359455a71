// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/MenuRowProvider.h"

#include "Platform/Views/Table/TableView.h"
#include "View/MenuBarCustomMenu/Controls/MenuSearchView.h"
#include "View/MenuBarCustomMenu/MenuRowMeasurer.h"
#include "View/MenuBarCustomMenu/Rows/EmphasizedRowView.h"
#include "View/MenuBarCustomMenu/Rows/MenuAdjustTimerView.h"
#include "View/MenuBarCustomMenu/Rows/MenuCellView.h"
#include "View/MenuBarCustomMenu/Rows/MenuSeparatorCell.h"
#include "View/MenuBarCustomMenu/Rows/MenuStopPastTimerView.h"
#include "View/Overloaded.h"

#include <algorithm>
#include <variant>

namespace quor::helper {

namespace {

constexpr int separatorHeight = 10;
constexpr int searchMargins = 4; // above and below the field together

/// Returns a view of this class that no row needs now, or a new one.
template <class View, class... Arguments>
View* reusedOrNew(platform::TableView& table, const Arguments&... arguments)
{
    const QString identifier = QLatin1String(View::staticMetaObject.className());
    if (auto* view = qobject_cast<View*>(table.makeView(identifier)))
        return view;
    auto* view = new View(arguments...);
    view->setObjectName(identifier);
    return view;
}

platform::TableViewRowDescription described(const MenuEntry::Entry& entry)
{
    const bool isRunning = std::holds_alternative<MenuEntry::Entry::Action::Stop>(entry.action.value);
    return {
        .text = entry.hotkey.isEmpty() ? entry.label : entry.label + u' ' + entry.hotkey,
        .role = entry.isTitle ? QAccessible::Heading : QAccessible::ListItem,
        .isEnabled = !entry.isTitle,
        .isChecked = isRunning ? std::optional(true) : std::nullopt,
    };
}

} // namespace

MenuRowProvider::MenuRowProvider(const std::vector<MenuEntry>& rows, const MenuRowMeasurer& measurer,
    MenuSearchView* searchView, const platform::Clock& clock)
    : rows_(rows)
    , measurer_(measurer)
    , searchView_(searchView)
    , clock_(clock)
{
}

const MenuEntry* MenuRowProvider::entryAt(int row) const
{
    return row >= 0 && std::size_t(row) < rows_.size() ? &rows_[std::size_t(row)] : nullptr;
}

int MenuRowProvider::searchRow() const
{
    const auto isSearch
        = [](const MenuEntry& row) { return std::holds_alternative<MenuEntry::Search>(row.value); };
    const auto found = searchView_ ? std::find_if(rows_.begin(), rows_.end(), isSearch) : rows_.end();
    return found == rows_.end() ? -1 : int(found - rows_.begin());
}

int MenuRowProvider::numberOfRows(const platform::TableView& /*table*/) const
{
    return int(rows_.size());
}

bool MenuRowProvider::shouldSelectRow(const platform::TableView& /*table*/, int row) const
{
    const MenuEntry* item = entryAt(row);
    const auto* entry = item ? std::get_if<MenuEntry::Entry>(&item->value) : nullptr;
    return entry && !entry->isTitle;
}

QString MenuRowProvider::typeSelectString(const platform::TableView& /*table*/, int row) const
{
    const MenuEntry* item = entryAt(row);
    const auto* entry = item ? std::get_if<MenuEntry::Entry>(&item->value) : nullptr;
    return entry ? entry->label : QString();
}

int MenuRowProvider::heightOfRow(const platform::TableView& /*table*/, int row) const
{
    const MenuEntry* item = entryAt(row);
    if (!item)
        return 0;
    const Overloaded height{
        [this](const MenuEntry::Entry&) { return measurer_.cellHeight(); },
        [this](const MenuEntry::AdjustStart&) { return measurer_.adjustStartHeight(); },
        [this](const MenuEntry::StopPast&) { return measurer_.stopPastHeight(); },
        [this](const MenuEntry::Search&) {
            return searchView_ ? searchView_->sizeHint().height() + searchMargins : 0;
        },
        [](const MenuEntry::Separator&) { return separatorHeight; },
    };
    return std::visit(height, item->value);
}

platform::TableRowView* MenuRowProvider::rowViewForRow(platform::TableView& /*table*/, int /*row*/)
{
    return new EmphasizedRowView;
}

QWidget* MenuRowProvider::viewForRow(platform::TableView& table, int row)
{
    const MenuEntry* item = entryAt(row);
    if (!item)
        return nullptr;
    const Overloaded view{
        [&](const MenuEntry::Entry& entry) { return viewFor(table, entry); },
        [&](const MenuEntry::AdjustStart& entry) { return viewFor(table, entry); },
        [&](const MenuEntry::StopPast& entry) { return viewFor(table, entry); },
        [&](const MenuEntry::Search&) { return viewForSearch(table, row); },
        [&](const MenuEntry::Separator&) -> QWidget* { return reusedOrNew<MenuSeparatorCell>(table); },
    };
    return std::visit(view, item->value);
}

QWidget* MenuRowProvider::viewFor(platform::TableView& table, const MenuEntry::Entry& entry)
{
    auto* cell = reusedOrNew<MenuCellView>(table);
    cell->data = entry;
    cell->rebuild();
    cell->clicked = [this](const MenuEntry::Entry& clicked) { entryClicked({clicked}); };
    return cell;
}

QWidget* MenuRowProvider::viewFor(platform::TableView& table, const MenuEntry::AdjustStart& entry)
{
    auto* view = reusedOrNew<MenuAdjustTimerView>(table);
    view->setTaskID(entry.taskID);
    view->startTime = entry.startTime;
    view->update();
    view->adjustHandler = [this, taskID = entry.taskID](int minutes) { startAdjusted(taskID, minutes); };
    return view;
}

QWidget* MenuRowProvider::viewFor(platform::TableView& table, const MenuEntry::StopPast& entry)
{
    auto* view = reusedOrNew<MenuStopPastTimerView>(table, clock_);
    view->setTaskID(entry.taskID);
    view->stopHandler = [this, taskID = entry.taskID](int minutes) { stopAdjusted(taskID, minutes); };
    return view;
}

QWidget* MenuRowProvider::viewForSearch(const platform::TableView& table, int row)
{
    // A row that is scrolled off is asked too if the field there has the keyboard. It must not take the
    // field from a row that the user sees.
    const bool isOnScreen = table.rectOfRow(row).intersects(table.visibleRect());
    return isOnScreen || table.rowForView(searchView_) < 0 ? searchView_ : nullptr;
}

platform::TableViewRowDescription MenuRowProvider::describeRow(
    const platform::TableView& table, int row) const
{
    using Description = platform::TableViewRowDescription;
    const MenuEntry* item = entryAt(row);
    if (!item)
        return {};
    const Overloaded description{
        [](const MenuEntry::Entry& entry) { return described(entry); },
        [](const MenuEntry::AdjustStart& entry) {
            return Description{.text = MenuAdjustTimerView::labelText(entry.startTime), .isChecked = {}};
        },
        [&](const MenuEntry::StopPast&) {
            auto* shown = qobject_cast<MenuStopPastTimerView*>(table.viewAtRow(row));
            return Description{
                .text = shown ? shown->labelField().text() : MenuStopPastTimerView::labelText(clock_.now()),
                .isChecked = {}};
        },
        [this](const MenuEntry::Search&) {
            return Description{
                .text = searchView_ ? searchView_->accessibleName() : QString(), .isChecked = {}};
        },
        [](const MenuEntry::Separator&) {
            return Description{
                .text = {}, .role = QAccessible::Separator, .isEnabled = false, .isChecked = {}};
        },
    };
    return std::visit(description, item->value);
}

void MenuRowProvider::didClickRow(platform::TableView& /*table*/, int row)
{
    if (const MenuEntry* entry = entryAt(row))
        entryClicked(MenuEntry(*entry)); // a copy, as the handler may replace the rows
}

void MenuRowProvider::pointerDidHoverRow(platform::TableView& table, int row)
{
    if (row >= 0 && row == table.selectedRow())
        return;
    if (shouldSelectRow(table, row))
        table.selectRowIndexes(platform::TableViewRowSet(row), false);
    else
        table.deselectAll();
}

} // namespace quor::helper
