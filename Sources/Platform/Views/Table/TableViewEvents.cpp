// SPDX-License-Identifier: MIT
#include "Platform/Views/Table/Accessibility/TableViewAccessible.h"
#include "Platform/Views/Table/TableView.h"
#include "Platform/Views/Table/TableViewHover.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QWheelEvent>

#include <utility>

namespace quor::platform {

namespace {

std::optional<TableViewStep> stepOfKey(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers others = event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier);
    if (others != Qt::NoModifier)
        return {};
    switch (event.key()) {
    case Qt::Key_Up:
        return TableViewStep::up;
    case Qt::Key_Down:
        return TableViewStep::down;
    case Qt::Key_PageUp:
        return TableViewStep::pageUp;
    case Qt::Key_PageDown:
        return TableViewStep::pageDown;
    case Qt::Key_Home:
        return TableViewStep::first;
    case Qt::Key_End:
        return TableViewStep::last;
    default:
        return {};
    }
}

} // namespace

void TableView::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    if (const std::optional<TableViewStep> step = stepOfKey(*event))
        walk(*step, event->modifiers().testFlag(Qt::ShiftModifier));
    else if (allowsMultiple_ && event->matches(QKeySequence::SelectAll))
        select(
            selectableRows(0, numberOfRows() - 1), selectedRow_ >= 0 ? selectedRow_ : nextSelectable(0, 1));
    else if (!typeSelect(*event))
        event->ignore();
}

bool TableView::typeSelect(const QKeyEvent& event)
{
    const std::chrono::milliseconds now(typingTime_.elapsed());
    const QString typed = event.text();
    const bool isCommand = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool isText = !typed.isEmpty() && typed.at(0).isPrint()
        && (typeSelect_.isTyping(now) || !typed.trimmed().isEmpty());
    TableViewDelegate* delegate = delegate_.get();
    if (!allowsTypeSelect_ || !delegate || isCommand || !isText)
        return false;
    const int row
        = typeSelect_.find(typed, now, selectedRow_, numberOfRows(), [this, delegate](int candidate) {
              return maySelect(candidate) ? delegate->typeSelectString(*this, candidate) : QString();
          });
    if (row < 0)
        return true;
    hover_->sleep();
    anchorRow_ = row;
    select(TableViewRowSet(row), row, true);
    scrollRowToVisible(row);
    return true;
}

void TableView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    pressedRow_ = rowAtPoint(event->position().toPoint());
    selectByUser(pressedRow_, event->modifiers());
}

void TableView::mouseReleaseEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton)
        return;
    const int pressed = std::exchange(pressedRow_, -1);
    if (pressed >= 0 && pressed == rowAtPoint(event->position().toPoint()))
        clickRow(pressed);
}

void TableView::mouseDoubleClickEvent(QMouseEvent* event)
{
    mousePressEvent(event); // the second of two quick clicks
}

void TableView::clickRow(int row)
{
    TableViewDelegate* delegate = delegate_.get();
    if (!delegate || row < 0 || row >= numberOfRows())
        return;
    const QPointer<TableView> self(this); // a click may close the window with all that is in it
    clickedRow_ = row;
    delegate->didClickRow(*this, row);
    if (self)
        clickedRow_ = -1;
}

void TableView::wheelEvent(QWheelEvent* event)
{
    QScrollBar* bar = verticalScrollBar();
    if (bar->maximum() == 0) {
        event->ignore();
        return;
    }
    event->accept();
    hover_->wake(event->globalPosition().toPoint());
    const int down = wheel_.pixelsDown(*event, bar->singleStep());
    bar->setValue(bar->value() + down);
}

void TableView::resizeEvent(QResizeEvent* event)
{
    QAbstractScrollArea::resizeEvent(event);
    updateScrollBar();
    layoutRows();
}

void TableView::showEvent(QShowEvent* event)
{
    QAbstractScrollArea::showEvent(event);
    hover_->watch(window()->windowHandle());
}

void TableView::changeEvent(QEvent* event)
{
    QAbstractScrollArea::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange || event->type() == QEvent::FontChange) {
        updateScrollBar();
        layoutRows();
    }
}

void TableView::focusInEvent(QFocusEvent* event)
{
    QAbstractScrollArea::focusInEvent(event);
    tableViewAccessibility::selectionDidChange(*this, selectedRow_, true);
}

void TableView::scrollContentsBy(int /*dx*/, int /*dy*/)
{
    layoutRows();
}

} // namespace quor::platform
