// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/CustomTableView.h"

#include "Platform/Lifetime/WhileAlive.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QScrollBar>

#include <algorithm>

using namespace std::chrono_literals;

namespace quor::toolkit {

namespace {

constexpr int scrollDuration = 250; // milliseconds

bool isPlain(const QKeyEvent& event)
{
    return (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
}

} // namespace

CustomTableView::CustomTableView(QWidget* parent)
    : TableView(parent)
    , scroll_(verticalScrollBar(), "value")
{
    scroll_.setDuration(scrollDuration);
    scroll_.setEasingCurve(QEasingCurve::OutQuad);
}

void CustomTableView::setKeyDelegate(CustomTableViewKeyDelegate* keyDelegate)
{
    keyDelegate_ = platform::TrackedPointer(keyDelegate);
}

CustomTableViewKeyDelegate* CustomTableView::keyDelegate() const
{
    return keyDelegate_.get();
}

void CustomTableView::setMenu(QMenu* menu)
{
    if (menu_)
        disconnect(menu_, nullptr, this, nullptr);
    if (rowForLastMenu_)
        menuDidClose(); // if it is open, it is not this table's any more
    menu_ = menu;
    if (!menu)
        return;
    connect(menu, &QMenu::aboutToHide, this, &CustomTableView::menuDidClose);
    connect(menu, &QObject::destroyed, this, &CustomTableView::menuDidClose); // which may come without hiding
}

void CustomTableView::selectRow(int row, bool extending)
{
    selectRowIndexes(platform::TableViewRowSet(row), extending && allowsMultipleSelection());
}

void CustomTableView::scrollRowToTop(int row)
{
    const QRect place = rectOfRow(row);
    if (place.isNull())
        return;
    QScrollBar* bar = verticalScrollBar();
    scroll_.stop();
    scroll_.setStartValue(bar->value());
    scroll_.setEndValue(std::clamp(place.top(), bar->minimum(), bar->maximum()));
    scroll_.start();
}

void CustomTableView::performDoubleClick()
{
    if (CustomTableViewKeyDelegate* delegate = keyDelegate())
        delegate->tableViewDidDoubleClick(*this, selectedRow());
}

void CustomTableView::keyPressEvent(QKeyEvent* event)
{
    scroll_.stop();
    using Report = void (CustomTableViewKeyDelegate::*)(CustomTableView&, int);
    Report report = nullptr;
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        report = &CustomTableViewKeyDelegate::tableViewDidPressEnter;
    else if (event->text().startsWith(QLatin1Char(' ')))
        report = &CustomTableViewKeyDelegate::tableViewDidPressSpace;
    else if (event->key() == Qt::Key_Left && isPlain(*event))
        report = &CustomTableViewKeyDelegate::tableViewDidMoveLeft;
    else if (event->key() == Qt::Key_Right && isPlain(*event))
        report = &CustomTableViewKeyDelegate::tableViewDidMoveRight;
    if (!report) {
        TableView::keyPressEvent(event);
        return;
    }
    event->accept();
    if (CustomTableViewKeyDelegate* delegate = keyDelegate())
        (delegate->*report)(*this, selectedRow());
}

void CustomTableView::mousePressEvent(QMouseEvent* event)
{
    scroll_.stop();
    if (menu_ && event->button() == Qt::LeftButton && event->modifiers().testFlag(Qt::ControlModifier))
        openMenu(rowAtPoint(event->position().toPoint()), event->globalPosition().toPoint());
    else
        TableView::mousePressEvent(event);
}

void CustomTableView::mouseDoubleClickEvent(QMouseEvent* event)
{
    TableView::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton)
        performDoubleClick();
}

void CustomTableView::contextMenuEvent(QContextMenuEvent* event)
{
    const bool isByKeyboard = event->reason() == QContextMenuEvent::Keyboard;
    const int row = isByKeyboard ? selectedRow() : rowAtPoint(event->pos());
    if (!menu_) {
        // An ancestor may open a menu of its own, whose action asks for the row.
        rowForLastMenu_ = row;
        waitForOtherMenu();
        return TableView::contextMenuEvent(event);
    }
    const QRect visible = viewportRectOfRow(row).intersected(viewport()->rect());
    openMenu(row, isByKeyboard ? viewport()->mapToGlobal(visible.center()) : event->globalPos());
}

void CustomTableView::wheelEvent(QWheelEvent* event)
{
    scroll_.stop();
    TableView::wheelEvent(event);
}

void CustomTableView::openMenu(int row, const QPoint& globalPosition)
{
    forgetRow_.cancel();
    rowForLastMenu_ = row;
    if (row >= 0 && !isRowSelected(row))
        selectRow(row);
    menu_->popup(globalPosition);
}

void CustomTableView::waitForOtherMenu()
{
    forgetRow_.cancel();
    const auto check = [this] {
        qobject_cast<QMenu*>(QApplication::activePopupWidget()) ? waitForOtherMenu() : menuDidClose();
    };
    forgetRow_ = platform::MainQueue::after(50ms, platform::whileAlive(*this, check));
}

void CustomTableView::menuDidClose()
{
    // The action of the chosen item is triggered after the menu has closed.
    forgetRow_.cancel();
    forgetRow_
        = platform::MainQueue::after(200ms, platform::whileAlive(*this, [this] { rowForLastMenu_.reset(); }));
}

} // namespace quor::toolkit
