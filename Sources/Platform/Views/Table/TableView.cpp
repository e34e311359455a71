// SPDX-License-Identifier: MIT
#include "Platform/Views/Table/TableView.h"

#include "Platform/Views/Table/Accessibility/TableViewAccessible.h"
#include "Platform/Views/Table/TableViewHover.h"
#include "Platform/Views/Table/TableViewRows.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QWheelEvent>

#include <algorithm>
#include <chrono>
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

bool goesUp(TableViewStep step)
{
    return step == TableViewStep::up || step == TableViewStep::pageUp || step == TableViewStep::first;
}

} // namespace

TableView::TableView(QWidget* parent)
    : QAbstractScrollArea(parent)
    , rows_(std::make_unique<TableViewRows>(*this))
    , hover_(std::make_unique<TableViewHover>(*this))
{
    tableViewAccessibility::install();
    setFocusPolicy(Qt::StrongFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    viewport()->setBackgroundRole(QPalette::Base);
    selection_.shouldSelectRow = [this](int row) {
        const TableViewDelegate* asked = delegate();
        return asked && asked->shouldSelectRow(*this, row);
    };
    selection_.changed = [this](const TableViewSelection::Change& change) { selectionDidChange(change); };
    connect(qApp, &QApplication::focusChanged, this, &TableView::updateEmphasis);
}

TableView::~TableView()
{
    // The destructor of the base class still moves the focus.
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
        rows_->reload(rowGeometry());
    }
    pressedRow_ = -1; // the user did not press the row that lies there now
    updateGeometry();
    tableViewAccessibility::rowsDidChange(*this);
    selection_.dropInvalidRows();
}

void TableView::measureRows()
{
    const TableViewDataSource* source = dataSource();
    const int count = source && delegate() ? source->numberOfRows(*this) : 0;
    if (uniformRowHeight_)
        heights_.setUniform(count, std::max(*uniformRowHeight_, 0) + spacing_);
    else
        heights_.setVarying(count, [this](int row) { return heightWithSpacing(row); });
    selection_.setNumberOfRows(heights_.count());
}

int TableView::heightWithSpacing(int row) const
{
    const TableViewDelegate* asked = delegate();
    return (asked ? std::max(asked->heightOfRow(*this, row), 0) : 0) + spacing_;
}

void TableView::noteHeightOfRowsChanged(int first, int last)
{
    heights_.update(first, last, [this](int row) { return heightWithSpacing(row); });
    updateScrollBar();
    layoutRows();
    updateGeometry();
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

TableViewGeometry TableView::rowGeometry() const
{
    const auto [left, right] = isRightToLeft() ? std::pair(insets_.right(), insets_.left())
                                               : std::pair(insets_.left(), insets_.right());
    return {
        .heights = heights_,
        .insets = QMargins(left, insets_.top(), right, insets_.bottom()),
        .spacing = spacing_,
        .visible = QRect(QPoint(0, verticalScrollBar()->value()), viewport()->size()),
    };
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

void TableView::scrollRowToVisible(int row)
{
    verticalScrollBar()->setValue(rowGeometry().offsetShowingRow(row));
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
    const QScopedValueRollback layingOut(isLayingOut_, true);
    rows_->layout(rowGeometry());
}

void TableView::updateEmphasis()
{
    const QWidget* focus = QApplication::focusWidget();
    rows_->setEmphasized(focus && (focus == this || isAncestorOf(focus)));
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

void TableView::selectRowIndexes(const TableViewRowSet& rows, bool byExtendingSelection)
{
    selection_.select(rows, byExtendingSelection);
}

void TableView::selectionDidChange(const TableViewSelection::Change& change)
{
    rows_->updateSelection();
    // After a step the row has the user's attention, even while a search field has the keyboard.
    tableViewAccessibility::selectionDidChange(*this, change.previousRow, change.isStep || hasFocus());
    if (TableViewDelegate* notified = delegate())
        notified->selectionDidChange(*this);
}

bool TableView::walk(TableViewStep step, bool byExtendingSelection)
{
    const int target = selection_.target(step, rowGeometry());
    if (target >= 0 && selection_.moveTo(target, byExtendingSelection)) {
        scrollRowToVisible(target);
        return true;
    }
    // What lies beyond cannot be selected, a heading for example, but can be seen.
    QScrollBar* bar = verticalScrollBar();
    bar->setValue(goesUp(step) ? bar->minimum() : bar->maximum());
    return false;
}

void TableView::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    if (const std::optional<TableViewStep> step = stepOfKey(*event))
        walk(*step, event->modifiers().testFlag(Qt::ShiftModifier));
    else if (allowsMultipleSelection() && event->matches(QKeySequence::SelectAll))
        selection_.selectAll();
    else if (!typeSelect(*event))
        event->ignore();
}

bool TableView::typeSelect(const QKeyEvent& event)
{
    const auto now = std::chrono::steady_clock::now();
    const QString typed = event.text();
    const bool isCommand = event.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier);
    const bool isText = !typed.isEmpty() && typed.at(0).isPrint()
        && (typeSelect_.isTyping(now) || !typed.trimmed().isEmpty());
    const TableViewDelegate* asked = delegate();
    if (!allowsTypeSelect_ || !asked || isCommand || !isText)
        return false;
    const int row = typeSelect_.find(typed, now, selectedRow(), numberOfRows(), [this, asked](int candidate) {
        return maySelectRow(candidate) ? asked->typeSelectString(*this, candidate) : QString();
    });
    if (row >= 0) {
        selection_.moveTo(row, false);
        scrollRowToVisible(row);
    }
    return true;
}

void TableView::mousePressEvent(QMouseEvent* event)
{
    if (event->button() != Qt::LeftButton) {
        event->ignore();
        return;
    }
    pressedRow_ = rowAtPoint(event->position().toPoint());
    selection_.click(pressedRow_, event->modifiers());
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
    TableViewDelegate* notified = delegate();
    if (notified && row >= 0 && row < numberOfRows())
        notified->didClickRow(*this, row);
}

void TableView::wheelEvent(QWheelEvent* event)
{
    QScrollBar* bar = verticalScrollBar();
    if (bar->maximum() == 0) {
        event->ignore();
        return;
    }
    event->accept();
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
    tableViewAccessibility::selectionDidChange(*this, selectedRow(), true);
}

void TableView::scrollContentsBy(int /*dx*/, int /*dy*/)
{
    layoutRows();
}

} // namespace quor::platform
