// SPDX-License-Identifier: MIT
#include "Platform/Views/Table/TableViewHover.h"

#include "Platform/Views/Table/TableView.h"

#include <QMouseEvent>

#include <utility>

namespace quor::platform {

TableViewHover::TableViewHover(TableView& table)
    : table_(table)
{
}

void TableViewHover::watch(QWindow* window)
{
    if (window == window_)
        return;
    if (window_)
        window_->removeEventFilter(this);
    window_ = window;
    if (window)
        window->installEventFilter(this);
}

void TableViewHover::contentMoved()
{
    if (!awake_)
        return;
    const std::optional<int> row = rowUnderPointer();
    if (!row)
        pointerLeft();
    else if (*row != row_)
        tell(*row);
}

void TableViewHover::sleep()
{
    awake_ = false;
    row_ = -1;
}

void TableViewHover::wake(const QPoint& globalPosition)
{
    position_ = globalPosition;
    awake_ = rowUnderPointer().has_value();
    told_ = told_ || awake_;
}

bool TableViewHover::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::MouseMove: {
        const auto* move = static_cast<QMouseEvent*>(event);
        if (move->buttons() == Qt::NoButton)
            pointerMoved(move->globalPosition().toPoint());
        break;
    }
    case QEvent::Enter:
        position_ = static_cast<QEnterEvent*>(event)->globalPosition().toPoint();
        hasMoved_ = false;
        break;
    case QEvent::Leave:
        pointerLeft();
        break;
    case QEvent::Move:
        contentMoved();
        break;
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void TableViewHover::pointerMoved(const QPoint& globalPosition)
{
    // Windows that come and go make the desktop tell of moves that were none.
    if (std::exchange(hasMoved_, true) && position_ == globalPosition)
        return;
    position_ = globalPosition;
    const std::optional<int> row = rowUnderPointer();
    if (!row) {
        pointerLeft();
        return;
    }
    awake_ = told_ = true;
    tell(*row);
}

void TableViewHover::tell(int row)
{
    row_ = row;
    if (TableViewDelegate* delegate = table_.delegate())
        delegate->pointerDidHoverRow(table_, row);
}

void TableViewHover::pointerLeft()
{
    sleep();
    if (!std::exchange(told_, false))
        return;
    if (TableViewDelegate* delegate = table_.delegate())
        delegate->pointerDidLeave(table_);
}

std::optional<int> TableViewHover::rowUnderPointer() const
{
    const QWidget* viewport = table_.viewport();
    const QWidget* window = table_.window();
    if (!position_ || !viewport->isVisible())
        return {};
    const QPoint point = viewport->mapFromGlobal(*position_);
    const QWidget* there = window->childAt(window->mapFromGlobal(*position_));
    if (!viewport->rect().contains(point) || !(there == viewport || viewport->isAncestorOf(there)))
        return {};
    return table_.rowAtPoint(point);
}

} // namespace quor::platform
