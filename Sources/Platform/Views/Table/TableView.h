// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Views/Table/TableRowView.h"
#include "Platform/Views/Table/TableViewDataSource.h"
#include "Platform/Views/Table/TableViewDelegate.h"
#include "Platform/Views/Table/TableViewRowHeights.h"
#include "Platform/Views/Table/TableViewSelection.h"
#include "Platform/Views/Table/TableViewTypeSelect.h"
#include "Platform/Views/Table/TableViewWheel.h"

#include <QAbstractScrollArea>

#include <memory>
#include <optional>

namespace quor::platform {

class TableViewHover;
class TableViewRows;

/// A scrolling column of rows, each shown by a widget. Only the rows on the screen have widgets, which are
/// reused when rows come and go. So a million rows cost what a screenful costs, plus one number per row for
/// the heights, which `setUniformRowHeight` avoids.
///
///     list.setDataSource(&rows); // both are held weakly, and may end before the list
///     list.setDelegate(&rows);
///     list.reloadData();
///
/// Lengths are device-independent pixels. A y in the content is counted from the upper edge of the content
/// insets and does not change by scrolling. The content is at most 2^30 pixels high, and rows beyond that
/// have no height. Main thread only.
class TableView : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit TableView(QWidget* parent = nullptr);
    ~TableView() override;

    [[nodiscard]] TableViewDataSource* dataSource() const { return dataSource_.get(); }
    [[nodiscard]] TableViewDelegate* delegate() const { return delegate_.get(); }
    /// These two do not reload: call `reloadData` afterwards. Calls and notifications go to the new delegate
    /// at once. Without a data source or without a delegate, a reload leaves no rows.
    void setDataSource(TableViewDataSource* dataSource);
    void setDelegate(TableViewDelegate* delegate);

    /// Asks data source and delegate again for everything. The scroll position stays as far as the content
    /// goes, and a row keeps its widgets, with focus and caret, if the delegate takes the same identifier
    /// for it again. The selection stays by index, without the rows that no longer exist or must not be
    /// selected any more. A press of the pointer that has not been released yet will be no click.
    void reloadData();
    [[nodiscard]] int numberOfRows() const { return heights_.count(); }

    /// Asks again for the heights of the rows from `first` to `last`, both included. The row at the upper
    /// edge of the viewport may be another one afterwards. After a reload with `setUniformRowHeight`, heights
    /// are not asked for.
    void noteHeightOfRowsChanged(int first, int last);

    /// Sets the height of every row; with `nullopt`, the default, the delegate is asked for each row's
    /// height. Takes effect with the next reload.
    void setUniformRowHeight(std::optional<int> height) { uniformRowHeight_ = height; }
    /// Sets a length that is added to each row's height, half of it above the row's view. The default is 0.
    /// Takes effect with the next reload.
    void setIntercellSpacing(int spacing);
    /// Free room around the rows, which scrolls with them. Left and right change sides in a right-to-left
    /// layout.
    void setContentInsets(const QMargins& insets);
    void setSelectionHighlightStyle(TableViewSelectionStyle style);
    [[nodiscard]] TableViewSelectionStyle selectionHighlightStyle() const { return style_; }

    /// The height of all rows and of the insets above and below them.
    [[nodiscard]] int contentHeight() const { return rowGeometry().contentHeight(); }
    /// The row and its spacing, in the content. Returns a null rectangle if there is no such row.
    [[nodiscard]] QRect rectOfRow(int row) const { return rowGeometry().rectOfRow(row); }
    /// The part of the content that is on the screen.
    [[nodiscard]] QRect visibleRect() const { return rowGeometry().visible; }
    /// Returns -1 if the point is outside the viewport, or no row is there.
    [[nodiscard]] int rowAtPoint(const QPoint& viewportPoint) const
    {
        return rowGeometry().rowAtPoint(viewportPoint);
    }
    /// `rectOfRow` in the viewport, also for a row that is not on the screen.
    [[nodiscard]] QRect viewportRectOfRow(int row) const { return rowGeometry().viewportRectOfRow(row); }

    /// Returns a widget with this `objectName()` that no row needs now, or null if there is no such widget.
    /// Only for use within `TableViewDelegate::viewForRow`, which must set everything that the row shows: the
    /// widget still shows the row that it served last.
    [[nodiscard]] QWidget* makeView(const QString& identifier);
    /// These return null for a row that has no widgets now. Rows on the screen have widgets, and so has the
    /// row with the keyboard focus, wherever it is.
    [[nodiscard]] QWidget* viewAtRow(int row) const;
    [[nodiscard]] TableRowView* rowViewAtRow(int row) const;
    /// The row that shows this widget, or a widget around it. Returns -1 if no row does.
    [[nodiscard]] int rowForView(const QWidget* view) const;

    /// Whether more than one row can be selected. The default is false. If `allows` is false and several rows
    /// are selected, only `selectedRow()` stays selected.
    void setAllowsMultipleSelection(bool allows) { selection_.setAllowsMultiple(allows); }
    [[nodiscard]] bool allowsMultipleSelection() const { return selection_.allowsMultiple(); }
    /// Whether clicks can leave no row selected. The default is true. The functions below ignore this.
    void setAllowsEmptySelection(bool allows) { selection_.setAllowsEmpty(allows); }
    [[nodiscard]] bool allowsEmptySelection() const { return selection_.allowsEmpty(); }
    /// The row that was selected last. Returns -1 if no row is selected.
    [[nodiscard]] int selectedRow() const { return selection_.selectedRow(); }
    [[nodiscard]] const TableViewRowSet& selectedRowIndexes() const { return selection_.rows(); }
    [[nodiscard]] bool isRowSelected(int row) const { return selection_.rows().contains(row); }
    /// Whether the user may select the row: it exists, and the delegate allows it.
    [[nodiscard]] bool maySelectRow(int row) const { return selection_.maySelect(row); }
    /// Selects rows without asking the delegate, which is notified of the change. Rows that do not exist are
    /// ignored. The highest of `rows` becomes `selectedRow()`; unless several rows can be selected, it is the
    /// only one that is selected. `byExtendingSelection` keeps the selected rows, if several rows can be
    /// selected.
    void selectRowIndexes(const TableViewRowSet& rows, bool byExtendingSelection);
    /// If the row was `selectedRow()`, the highest row that is still selected becomes `selectedRow()`.
    void deselectRow(int row) { selection_.deselect(row); }
    void deselectAll() { selection_.deselectAll(); }

    /// Moves the selection as the keys do, and scrolls it into view. Skips rows that the user must not
    /// select. Without a selection, down selects the first row and up the last. Returns whether the selection
    /// has changed. If it has not, because it is at the end, scrolls to that end of the content. For a widget
    /// that has the keyboard while the user walks through this list, such as a search field.
    bool walk(TableViewStep step, bool byExtendingSelection = false);
    /// Whether typing selects the row that begins with the typed text. The default is true.
    void setAllowsTypeSelect(bool allows) { allowsTypeSelect_ = allows; }

    /// Reports a click on the row to the delegate, as a screen reader may ask for. Does not select the row.
    /// Ignored if there is no such row.
    void clickRow(int row);

    /// Scrolls by as little as possible until the whole row can be seen; a row higher than the viewport is
    /// shown from its upper edge. The first and the last row are shown with the insets next to them.
    void scrollRowToVisible(int row);

    /// Returns a size that is as wide as the frame needs, and as high as the content.
    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

private:
    [[nodiscard]] TableViewGeometry rowGeometry() const;
    [[nodiscard]] int heightWithSpacing(int row) const;
    void measureRows();
    void updateScrollBar();
    void layoutRows();
    void updateEmphasis();
    void selectionDidChange(const TableViewSelection::Change& change);
    [[nodiscard]] bool typeSelect(const QKeyEvent& event);

    TrackedPointer<TableViewDataSource> dataSource_;
    TrackedPointer<TableViewDelegate> delegate_;
    TableViewRowHeights heights_;
    std::optional<int> uniformRowHeight_;
    int spacing_ = 0;
    QMargins insets_;
    TableViewSelectionStyle style_ = TableViewSelectionStyle::regular;
    TableViewSelection selection_;
    TableViewTypeSelect typeSelect_;
    TableViewWheel wheel_;
    std::unique_ptr<TableViewRows> rows_;
    std::unique_ptr<TableViewHover> hover_;
    int pressedRow_ = -1;
    bool allowsTypeSelect_ = true;
    bool isLayingOut_ = false;
};

} // namespace quor::platform
