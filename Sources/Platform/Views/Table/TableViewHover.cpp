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
    default:
        break;
    }
    return QObject::eventFilter(watched, event);
}

void TableViewHover::pointerMoved(const QPoint& globalPosition)
{
    // When windows appear and vanish, the desktop reports moves of a pointer that rests.
    if (std::exchange(hasMoved_, true) && position_ == globalPosition)
        return;
    position_ = globalPosition;
    const std::optional<int> row = rowUnderPointer();
    if (!row) {
        pointerLeft();
        return;
    }
    isOverRows_ = true;
    if (TableViewDelegate* delegate = table_.delegate())
        delegate->pointerDidHoverRow(table_, *row);
}

void TableViewHover::pointerLeft()
{
    if (!std::exchange(isOverRows_, false))
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
    const QWidget* atPoint = window->childAt(window->mapFromGlobal(*position_));
    if (!viewport->rect().contains(point) || !(atPoint == viewport || viewport->isAncestorOf(atPoint)))
        return {};
    return table_.rowAtPoint(point);
}

} // namespace quor::platform
