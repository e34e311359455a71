// SPDX-License-Identifier: MIT
#include "Platform/Views/Table/TableView.h"

#include "Platform/Views/Table/Accessibility/TableViewAccessible.h"
#include "Platform/Views/Table/TableViewHover.h"
#include "Platform/Views/Table/TableViewRows.h"

#include <QApplication>
#include <QScopedValueRollback>
#include <QScrollBar>

#include <algorithm>

namespace quor::platform {

TableView::TableView(QWidget* parent)
    : QAbstractScrollArea(parent)
    , rows_(std::make_unique<TableViewRows>(*this))
    , hover_(std::make_unique<TableViewHover>(*this))
{
    tableViewAccessibility::install();
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setBackgroundRole(QPalette::Base);
    typingTime_.start();
    connect(qApp, &QApplication::focusChanged, this, &TableView::updateEmphasis);
}

TableView::~TableView()
{
    // The base class, on its way out, still gives the focus away.
    disconnect(qApp, nullptr, this, nullptr);
}

void TableView::setDataSource(TableViewDataSource* dataSource)
{
    dataSource_ = TrackedPointer(dataSource);
}

void TableView::setDelegate(TableViewDelegate* delegate)
{
    delegate_ = TrackedPointer(delegate);
}

void TableView::reloadData()
{
    if (isLayingOut_) {
        QMetaObject::invokeMethod(this, &TableView::reloadData, Qt::QueuedConnection);
        return;
    }
    {
        const QScopedValueRollback layingOut(isLayingOut_, true);
        measureRows();
        updateScrollBar();
        rows_->reload();
    }
    pressedRow_ = -1; // the row that comes to lie there was not meant
    updateGeometry();
    tableViewAccessibility::rowsDidChange(*this);
    dropInvalidSelection();
    hover_->contentMoved();
}

void TableView::measureRows()
{
    const TableViewDataSource* source = dataSource();
    const int count = source && delegate() ? source->numberOfRows(*this) : 0;
    if (uniformRowHeight_)
        heights_.setUniform(count, std::max(*uniformRowHeight_, 0) + spacing_);
    else
        heights_.setVarying(count, [this](int row) { return heightWithSpacing(row); });
}

int TableView::heightWithSpacing(int row) const
{
    const TableViewDelegate* delegate = delegate_.get();
    return (delegate ? std::max(delegate->heightOfRow(*this, row), 0) : 0) + spacing_;
}

void TableView::noteHeightOfRowsChanged(int first, int last)
{
    heights_.update(first, last, [this](int row) { return heightWithSpacing(row); });
    updateScrollBar();
    layoutRows();
    updateGeometry();
}

void TableView::setUniformRowHeight(std::optional<int> height)
{
    uniformRowHeight_ = height;
}

void TableView::setIntercellSpacing(int spacing)
{
    spacing_ = std::max(spacing, 0);
}

void TableView::setContentInsets(const QMargins& insets)
{
    insets_ = insets;
    updateScrollBar();
    layoutRows();
    updateGeometry();
}

void TableView::setSelectionHighlightStyle(TableViewSelectionStyle style)
{
    style_ = style;
    layoutRows();
}

int TableView::contentHeight() const
{
    return heights_.total() + insets_.top() + insets_.bottom();
}

QRect TableView::rectOfRow(int row) const
{
    if (row < 0 || row >= numberOfRows())
        return {};
    const int left = isRightToLeft() ? insets_.right() : insets_.left();
    const int width = viewport()->width() - insets_.left() - insets_.right();
    const int top = heights_.top(row);
    return {left, insets_.top() + top, width, heights_.bottom(row) - top};
}

QRect TableView::visibleRect() const
{
    return {{0, verticalScrollBar()->value()}, viewport()->size()};
}

int TableView::rowAtPoint(const QPoint& viewportPoint) const
{
    if (!viewport()->rect().contains(viewportPoint))
        return -1;
    return heights_.rowAt(viewportPoint.y() + verticalScrollBar()->value() - insets_.top());
}

QRect TableView::viewportRectOfRow(int row) const
{
    return rectOfRow(row).translated(0, -verticalScrollBar()->value());
}

QWidget* TableView::makeView(const QString& identifier)
{
    return rows_->makeView(identifier);
}

QWidget* TableView::viewAtRow(int row) const
{
    const TableRowView* rowView = rows_->rowViewAtRow(row);
    return rowView ? rowView->view() : nullptr;
}

TableRowView* TableView::rowViewAtRow(int row) const
{
    return rows_->rowViewAtRow(row);
}

int TableView::rowForView(const QWidget* view) const
{
    for (; view && view != this; view = view->parentWidget())
        if (const auto* rowView = qobject_cast<const TableRowView*>(view);
            rowView && rowView->parentWidget() == viewport())
            return rows_->rowForRowView(rowView);
    return -1;
}

int TableView::hoveredRow() const
{
    return hover_->row();
}

void TableView::ignorePointerUntilItMoves()
{
    hover_->sleep();
}

void TableView::scrollRowToVisible(int row)
{
    QRect place = rectOfRow(row);
    if (place.isNull())
        return;
    // The rows at the ends come with the room beyond them.
    if (row == 0)
        place.setTop(0);
    if (row == numberOfRows() - 1)
        place.setBottom(contentHeight() - 1);
    QScrollBar* bar = verticalScrollBar();
    const int below = place.bottom() + 1 - viewport()->height();
    bar->setValue(std::min(std::max(bar->value(), below), place.top()));
}

void TableView::updateScrollBar()
{
    QScrollBar* bar = verticalScrollBar();
    bar->setSingleStep(fontMetrics().lineSpacing());
    bar->setPageStep(viewport()->height());
    bar->setRange(0, std::max(contentHeight() - viewport()->height(), 0));
}

void TableView::layoutRows()
{
    if (isLayingOut_)
        return;
    {
        const QScopedValueRollback layingOut(isLayingOut_, true);
        rows_->layout();
    }
    hover_->contentMoved();
}

void TableView::updateEmphasis()
{
    const QWidget* focus = QApplication::focusWidget();
    const bool emphasized = focus && (focus == this || isAncestorOf(focus));
    if (emphasized == emphasized_)
        return;
    emphasized_ = emphasized;
    rows_->updateSelection();
}

QSize TableView::sizeHint() const
{
    const int frame = 2 * frameWidth();
    return {QAbstractScrollArea::sizeHint().width(), contentHeight() + frame};
}

QSize TableView::minimumSizeHint() const
{
    const int frame = 2 * frameWidth();
    return {frame + insets_.left() + insets_.right(), frame};
}

} // namespace quor::platform
