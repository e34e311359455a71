// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/MenuBarCustomMenu.h"

#include "Platform/Lifetime/WhileAlive.h"
#include "Platform/Services/Screen.h"
#include "View/MenuBarCustomMenu/Controls/MenuScrollBar.h"
#include "View/MenuBarCustomMenu/Rows/EmphasizedRowView.h"

#include <QEvent>
#include <QPointer>
#include <QShowEvent>

#include <algorithm>
#include <cmath>
#include <variant>

namespace quor::helper {

namespace {

constexpr double searchDelay = 0.2; // seconds
constexpr double shareOfScreen = 0.9;
constexpr int rowSpacing = 6;
constexpr int rowsAtFirst = 5;

/// Returns the task of an entry whose timer runs, else null.
const QString* runningTask(const MenuEntry* item)
{
    const auto* entry = item ? std::get_if<MenuEntry::Entry>(&item->value) : nullptr;
    const auto* stop = entry ? std::get_if<MenuEntry::Entry::Action::Stop>(&entry->action.value) : nullptr;
    return stop ? &stop->taskID : nullptr;
}

} // namespace

MenuBarCustomMenu::MenuBarCustomMenu(
    bool showSearch, double minWidth, const platform::Clock& clock, QWidget* parent)
    : QWidget(parent)
    , minWidth_(int(std::lround(minWidth)))
    , measurer_(*this, clock)
    , tableView_(this)
    , rowProvider_(dataList, measurer_, showSearch ? &searchView_ : nullptr, clock)
    , keyboard_(tableView_, searchView_)
    , delayedSearchAction_(searchDelay)
{
    setUpTable();
    setUpSearch();
    connectRows();
    resize(minWidth_, rowsAtFirst * measurer_.cellHeight());
}

MenuBarCustomMenu::~MenuBarCustomMenu()
{
    cleanup();
}

void MenuBarCustomMenu::setUpTable()
{
    tableView_.setFrameShape(QFrame::NoFrame);
    tableView_.setVerticalScrollBar(new MenuScrollBar); // owned by the table
    tableView_.setFocusPolicy(Qt::TabFocus); // a click leaves the caret where it is
    tableView_.viewport()->setBackgroundRole(QPalette::NoRole);
    tableView_.viewport()->setAutoFillBackground(false);
    tableView_.setAllowsTypeSelect(true);
    tableView_.setAllowsEmptySelection(true);
    tableView_.setAllowsMultipleSelection(false);
    tableView_.setSelectionHighlightStyle(platform::TableViewSelectionStyle::sourceList);
    tableView_.setIntercellSpacing(rowSpacing);
    constexpr int inset = EmphasizedRowView::listInset;
    tableView_.setContentInsets({inset, inset, inset, inset});
    tableView_.setDataSource(&rowProvider_);
    tableView_.setDelegate(&rowProvider_);
}

void MenuBarCustomMenu::setUpSearch()
{
    searchView_.setObjectName(QLatin1String(MenuSearchView::staticMetaObject.className()));
    searchView_.hide();
    connect(&searchView_, &QLineEdit::textChanged, this,
        [this] { delayedSearchAction_.run(platform::whileAlive(*this, [this] { search(); })); });
}

void MenuBarCustomMenu::connectRows()
{
    rowProvider_.entryClicked = [this](const MenuEntry& entry) { entryClicked(entry); };
    rowProvider_.startAdjusted
        = [this](const QString& taskID, int minutes) { adjustStartHandler(taskID, minutes); };
    rowProvider_.stopAdjusted
        = [this](const QString& taskID, int minutes) { adjustedStopHandler(taskID, minutes); };
    keyboard_.arrowPressed = [this](int row, int minutes) {
        if (const QString* taskID = runningTask(rowProvider_.entryAt(row)))
            adjustStartHandler(QString(*taskID), minutes); // a copy, as the handler may replace the rows
    };
}

void MenuBarCustomMenu::reload()
{
    const bool hadSelection = tableView_.selectedRow() >= 0;
    const bool wasTyping = keyboard_.isTyping();
    keyboard_.setSearchRow(rowProvider_.searchRow());
    width_ = measurer_.measure(dataList, minWidth_); // first, as the table asks for the rows' heights
    tableView_.reloadData();
    const QPointer<MenuBarCustomMenu> self(this);
    resizeToFit();
    if (!self)
        return;
    using enum MenuKeyboard::Receiver;
    keyboard_.giveTo(hadSelection ? table : searchField, wasTyping);
}

void MenuBarCustomMenu::resizeToFit()
{
    if (!width_) {
        width_ = measurer_.measure(dataList, minWidth_);
        if (tableView_.numberOfRows() > 0)
            tableView_.noteHeightOfRowsChanged(0, tableView_.numberOfRows() - 1);
    }
    const auto screen = platform::Screen::mainScreen();
    const double highest = screen ? shareOfScreen * screen->visibleFrame.height() : 0;
    const double height = std::min<double>(tableView_.sizeHint().height(), highest);
    resize(*width_, int(std::lround(height)));
    resizedHandler();
}

void MenuBarCustomMenu::cleanup()
{
    tableView_.setDelegate(nullptr);
    tableView_.setDataSource(nullptr);
    keyboard_.detach();
    disconnect(&searchView_, nullptr, this, nullptr);
    resizedHandler = nullptr;
    entryClicked = nullptr;
    adjustStartHandler = nullptr;
    adjustedStopHandler = nullptr;
    searchTermChangedHandler = nullptr;
    adjustedStopTimePerTaskID.clear();
    delayedSearchAction_.cancel();
    dataList = std::vector<MenuEntry>(); // which frees the memory, unlike clear()
}

void MenuBarCustomMenu::search()
{
    tableView_.deselectAll();
    searchTermChangedHandler(searchView_.text().toLower());
}

void MenuBarCustomMenu::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    tableView_.setGeometry(rect());
}

void MenuBarCustomMenu::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    if (event->spontaneous())
        return; // its window was only hidden by the window manager
    const QPointer<MenuBarCustomMenu> self(this);
    resizeToFit();
    if (self)
        keyboard_.giveTo(MenuKeyboard::Receiver::searchField, keyboard_.isTyping());
}

void MenuBarCustomMenu::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    const bool isFont = event->type() == QEvent::FontChange || event->type() == QEvent::ApplicationFontChange;
    if (!isFont || tableView_.numberOfRows() == 0)
        return;
    width_.reset();
    // The rows take the new font only after this event.
    QMetaObject::invokeMethod(
        this,
        [this] {
            searchView_.followDesktop();
            if (!width_)
                resizeToFit();
        },
        Qt::QueuedConnection);
}

} // namespace quor::helper
