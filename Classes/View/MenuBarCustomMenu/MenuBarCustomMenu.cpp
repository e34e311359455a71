// SPDX-License-Identifier: MIT
#include "View/MenuBarCustomMenu/MenuBarCustomMenu.h"

#include "Platform/Services/Screen.h"
#include "View/MenuBarCustomMenu/Controls/MenuScrollBar.h"
#include "View/MenuBarCustomMenu/Rows/EmphasizedRowView.h"

#include <QEvent>
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

} // namespace

MenuBarCustomMenu::MenuBarCustomMenu(
    bool showSearch, double minWidth, const platform::Clock& clock, QWidget* parent)
    : QWidget(parent)
    , clock_(clock)
    , showSearch_(showSearch)
    , minWidth_(int(std::lround(minWidth)))
    , measurer_(*this, clock)
    , tableView_(this)
    , typingRelay_(tableView_, searchView_)
    , delayedSearchAction_(searchDelay)
{
    setUpTable();
    setUpSearch();
    resize(minWidth_, rowsAtFirst * measurer_.cellHeight());
}

MenuBarCustomMenu::~MenuBarCustomMenu()
{
    cleanup();
}

void MenuBarCustomMenu::setUpTable()
{
    tableView_.setFrameShape(QFrame::NoFrame);
    tableView_.setVerticalScrollBar(new MenuScrollBar); // the table's
    // A click leaves the caret where it is.
    tableView_.setFocusPolicy(Qt::TabFocus);
    tableView_.viewport()->setBackgroundRole(QPalette::NoRole);
    tableView_.viewport()->setAutoFillBackground(false);
    tableView_.setAllowsTypeSelect(true);
    tableView_.setAllowsEmptySelection(true);
    tableView_.setAllowsMultipleSelection(false);
    tableView_.setSelectionHighlightStyle(platform::TableViewSelectionStyle::sourceList);
    tableView_.setIntercellSpacing(rowSpacing);
    constexpr int inset = EmphasizedRowView::listInset;
    tableView_.setContentInsets({inset, inset, inset, inset});
    tableView_.setDataSource(this);
    tableView_.setDelegate(this);
    tableView_.setKeyDelegate(this);
}

void MenuBarCustomMenu::setUpSearch()
{
    searchView_.setObjectName(QLatin1String(MenuSearchView::staticMetaObject.className()));
    searchView_.hide();
    searchView_.keyHandler = [this](QKeyEvent& event) { return handleSearchKey(event); };
    connect(&searchView_, &QLineEdit::textChanged, this, &MenuBarCustomMenu::searchTextChanged);
}

void MenuBarCustomMenu::reload()
{
    const bool hadSelection = tableView_.selectedRow() >= 0;
    const auto isSearch
        = [](const MenuEntry& row) { return std::holds_alternative<MenuEntry::Search>(row.value); };
    const auto search
        = showSearch_ ? std::find_if(dataList.begin(), dataList.end(), isSearch) : dataList.end();
    searchRow_ = search == dataList.end() ? -1 : int(search - dataList.begin());
    typingRelay_.setFieldRow(searchRow_);

    const bool wasTyping = searchView_.hasFocus() && !searchView_.text().isEmpty();
    width_ = measurer_.measure(dataList, minWidth_); // before the table asks for the heights
    tableView_.reloadData();
    const QPointer<MenuBarCustomMenu> self(this);
    resizeToFit();
    if (!self)
        return;
    // The pointer may lie over a row that came to it; it was not moved there.
    if (!hadSelection)
        tableView_.deselectAll();
    giveFocus(!hadSelection);
    if (wasTyping && tableView_.hasFocus())
        typingRelay_.setInterruptsTyping(true);
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
    if (const auto handler = resizedHandler)
        handler();
}

void MenuBarCustomMenu::giveFocus(bool toSearch)
{
    const QWidget* focus = window()->focusWidget();
    const bool isControlOfRow = focus && focus != &searchView_ && focus != &tableView_
        && tableView_.isAncestorOf(focus) && focus->isVisibleTo(&tableView_);
    if (isControlOfRow || typingRelay_.isComposing())
        return;
    const bool showsSearch = searchRow_ >= 0 && tableView_.viewAtRow(searchRow_) == &searchView_;
    QWidget& receiver = toSearch && showsSearch ? static_cast<QWidget&>(searchView_) : tableView_;
    receiver.setFocus(Qt::OtherFocusReason);
}

void MenuBarCustomMenu::cleanup()
{
    tableView_.setDelegate(nullptr);
    tableView_.setDataSource(nullptr);
    tableView_.setKeyDelegate(nullptr);
    disconnect(&searchView_, nullptr, this, nullptr);
    searchView_.keyHandler = nullptr;
    resizedHandler = nullptr;
    entryClicked = nullptr;
    adjustStartHandler = nullptr;
    adjustedStopHandler = nullptr;
    searchTermChangedHandler = nullptr;
    adjustedStopTimePerTaskID.clear();
    delayedSearchAction_.cancel();
    std::vector<MenuEntry>().swap(dataList);
}

void MenuBarCustomMenu::searchTextChanged()
{
    tableView_.ignorePointerUntilItMoves();
    delayedSearchAction_.run([self = QPointer(this)] {
        if (self)
            self->search();
    });
}

void MenuBarCustomMenu::search()
{
    tableView_.deselectAll();
    if (const auto handler = searchTermChangedHandler)
        handler(searchView_.text().toLower());
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
        return; // its window was only out of sight
    const QPointer<MenuBarCustomMenu> self(this);
    resizeToFit();
    if (self)
        giveFocus(true);
}

void MenuBarCustomMenu::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    const bool isFont = event->type() == QEvent::FontChange || event->type() == QEvent::ApplicationFontChange;
    if (!isFont || tableView_.numberOfRows() == 0)
        return;
    width_.reset();
    // The rows take the font later than this.
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
