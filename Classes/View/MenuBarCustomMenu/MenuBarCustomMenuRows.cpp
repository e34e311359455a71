// SPDX-License-Identifier: MIT
// What the table asks about the rows.
#include "View/MenuBarCustomMenu/MenuBarCustomMenu.h"
#include "View/MenuBarCustomMenu/Rows/EmphasizedRowView.h"
#include "View/MenuBarCustomMenu/Rows/MenuAdjustTimerView.h"
#include "View/MenuBarCustomMenu/Rows/MenuCellView.h"
#include "View/MenuBarCustomMenu/Rows/MenuSeparatorCell.h"
#include "View/MenuBarCustomMenu/Rows/MenuStopPastTimerView.h"

#include <algorithm>
#include <utility>
#include <variant>

namespace quor::helper {

namespace {

constexpr int separatorHeight = 10;
constexpr int searchRoom = 4;
constexpr const char* taskProperty = "taskID";

template <class... Cases>
struct Overloaded : Cases... {
    using Cases::operator()...;
};
template <class... Cases>
Overloaded(Cases...) -> Overloaded<Cases...>;

/// A view of this class that no row needs now, or a new one.
template <class View, class... Arguments>
View& reusedOrNew(platform::TableView& table, const Arguments&... arguments)
{
    const QString identifier = QLatin1String(View::staticMetaObject.className());
    if (auto* view = qobject_cast<View*>(table.makeView(identifier)))
        return *view;
    auto* view = new View(arguments...);
    view->setObjectName(identifier);
    return *view;
}

/// The same for a task. One that is pressed for another task is let go: its release would count for
/// this one.
template <class View, class... Arguments>
View& reusedOrNewForTask(platform::TableView& table, const QString& taskID, const Arguments&... arguments)
{
    View* view = &reusedOrNew<View>(table, arguments...);
    const bool isPressed = std::any_of(
        view->buttons().begin(), view->buttons().end(), [](const auto* button) { return button->isDown(); });
    if (isPressed && view->property(taskProperty).toString() != taskID) {
        view->setEnabled(false);
        view->setObjectName({}); // so the table deletes it
        view = new View(arguments...);
        view->setObjectName(QLatin1String(View::staticMetaObject.className()));
    }
    view->setProperty(taskProperty, taskID);
    return *view;
}

void tell(const std::function<void(const QString&, int)>& handler, const QString& taskID, int minutes)
{
    if (const auto kept = handler) // a handler may end whose member it is
        kept(taskID, minutes);
}

platform::TableViewRowDescription described(const MenuEntry::Entry& entry)
{
    const bool runs = std::holds_alternative<MenuEntry::Entry::Action::Stop>(entry.action.value);
    return {
        .text = entry.hotkey.isEmpty() ? entry.label : entry.label + u' ' + entry.hotkey,
        .role = entry.isTitle ? QAccessible::Heading : QAccessible::ListItem,
        .isEnabled = !entry.isTitle,
        .isChecked = runs ? std::optional(true) : std::nullopt,
    };
}

platform::TableViewRowDescription described(MenuTimerRow& view)
{
    return {.text = view.labelField().text(), .isChecked = {}};
}

} // namespace

const MenuEntry* MenuBarCustomMenu::entryAt(int row) const
{
    return row >= 0 && std::size_t(row) < dataList.size() ? &dataList[std::size_t(row)] : nullptr;
}

int MenuBarCustomMenu::numberOfRows(const platform::TableView& /*table*/) const
{
    return int(dataList.size());
}

bool MenuBarCustomMenu::shouldSelectRow(const platform::TableView& /*table*/, int row) const
{
    const MenuEntry* item = entryAt(row);
    const auto* entry = item ? std::get_if<MenuEntry::Entry>(&item->value) : nullptr;
    return entry && !entry->isTitle;
}

QString MenuBarCustomMenu::typeSelectString(const platform::TableView& /*table*/, int row) const
{
    const MenuEntry* item = entryAt(row);
    const auto* entry = item ? std::get_if<MenuEntry::Entry>(&item->value) : nullptr;
    return entry ? entry->label : QString();
}

int MenuBarCustomMenu::heightOfRow(const platform::TableView& /*table*/, int row) const
{
    const MenuEntry* item = entryAt(row);
    if (!item)
        return 0;
    return std::visit(Overloaded{
                          [this](const MenuEntry::Entry&) { return measurer_.cellHeight(); },
                          [this](const MenuEntry::AdjustStart&) { return measurer_.adjustStartHeight(); },
                          [this](const MenuEntry::StopPast&) { return measurer_.stopPastHeight(); },
                          [this](const MenuEntry::Search&) {
                              return showSearch_ ? searchView_.sizeHint().height() + searchRoom : 0;
                          },
                          [](const MenuEntry::Separator&) { return separatorHeight; },
                      },
        item->value);
}

platform::TableRowView* MenuBarCustomMenu::rowViewForRow(platform::TableView& /*table*/, int /*row*/)
{
    return new EmphasizedRowView;
}

QWidget* MenuBarCustomMenu::viewForRow(platform::TableView& /*table*/, int row)
{
    const MenuEntry* item = entryAt(row);
    if (!item)
        return nullptr;
    return std::visit(Overloaded{
                          [this, row](const MenuEntry::Search&) { return viewForSearch(row); },
                          [this](const auto& kind) { return viewFor(kind); },
                      },
        item->value);
}

QWidget* MenuBarCustomMenu::viewFor(const MenuEntry::Entry& entry)
{
    auto& cell = reusedOrNew<MenuCellView>(tableView_);
    cell.data = entry;
    cell.rebuild();
    cell.clicked = [this, &cell] { choose(tableView_.rowForView(&cell)); };
    return &cell;
}

QWidget* MenuBarCustomMenu::viewFor(const MenuEntry::AdjustStart& entry)
{
    auto& view = reusedOrNewForTask<MenuAdjustTimerView>(tableView_, entry.taskID);
    view.startTime = entry.startTime;
    view.update();
    view.adjustHandler = [self = QPointer(this), taskID = entry.taskID](int minutes) {
        if (self)
            tell(self->adjustStartHandler, taskID, minutes);
    };
    return &view;
}

QWidget* MenuBarCustomMenu::viewFor(const MenuEntry::StopPast& entry)
{
    auto& view = reusedOrNewForTask<MenuStopPastTimerView>(tableView_, entry.taskID, clock_);
    view.stopHandler = [self = QPointer(this), taskID = entry.taskID](int minutes) {
        if (self)
            tell(self->adjustedStopHandler, taskID, minutes);
    };
    return &view;
}

QWidget* MenuBarCustomMenu::viewFor(const MenuEntry::Separator& /*entry*/)
{
    return &reusedOrNew<MenuSeparatorCell>(tableView_);
}

QWidget* MenuBarCustomMenu::viewForSearch(int row)
{
    // There is one field: a second row of it stays empty.
    if (row != searchRow_)
        return nullptr;
    searchView_.tag = row;
    return &searchView_;
}

platform::TableViewRowDescription MenuBarCustomMenu::describeRow(
    const platform::TableView& table, int row) const
{
    const MenuEntry* item = entryAt(row);
    if (!item)
        return {};
    auto* shown = qobject_cast<MenuTimerRow*>(table.viewAtRow(row));
    const auto describe = Overloaded{
        [](const MenuEntry::Entry& entry) { return described(entry); },
        [shown](const MenuEntry::AdjustStart& entry) {
            if (shown)
                return described(*shown);
            MenuAdjustTimerView view;
            view.startTime = entry.startTime;
            view.update();
            return described(view);
        },
        [this, shown](const MenuEntry::StopPast&) {
            if (shown)
                return described(*shown);
            MenuStopPastTimerView view(clock_);
            return described(view);
        },
        [this](const MenuEntry::Search&) {
            return platform::TableViewRowDescription{.text = searchView_.accessibleName(), .isChecked = {}};
        },
        [](const MenuEntry::Separator&) {
            return platform::TableViewRowDescription{
                .text = {}, .role = QAccessible::Separator, .isEnabled = false, .isChecked = {}};
        },
    };
    return std::visit(describe, item->value);
}

} // namespace quor::helper
