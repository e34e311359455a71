// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Views/Table/TableRowView.h"
#include "Platform/Views/Table/TableViewDataSource.h"
#include "Platform/Views/Table/TableViewDelegate.h"
#include "Platform/Views/Table/TableViewRowHeights.h"
#include "Platform/Views/Table/TableViewRowSet.h"
#include "Platform/Views/Table/TableViewTypeSelect.h"
#include "Platform/Views/Table/TableViewWheel.h"

#include <QAbstractScrollArea>
#include <QElapsedTimer>

#include <memory>
#include <optional>

namespace quor::platform {

class TableViewHover;
class TableViewRows;

/// A step of the selection by keyboard.
enum class TableViewStep { up, down, pageUp, pageDown, first, last };

/// A scrolling column of rows, each shown by a widget of its own. Only the rows on the screen have
/// widgets, which are reused as rows come and go, so a million rows cost what a screenful costs and
/// their heights: one number a row, none where all are of one height.
///
///     list.setDataSource(&rows); // both are referred to weakly, and may end first
///     list.setDelegate(&rows);
///     list.reloadData();
///
/// Positions along the content count from the top of its insets, in device-independent pixels, and
/// do not move with scrolling; the content is at most `INT_MAX` high. Main thread only.
class TableView : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit TableView(QWidget* parent = nullptr);
    ~TableView() override;

    [[nodiscard]] TableViewDataSource* dataSource() const { return dataSource_.get(); }
    [[nodiscard]] TableViewDelegate* delegate() const { return delegate_.get(); }
    /// What is shown stays until the next reload; without either, a reload leaves no rows.
    void setDataSource(TableViewDataSource* dataSource);
    void setDelegate(TableViewDelegate* delegate);

    /// Asks for everything anew. Stay as they are: the scroll position as far as the content goes,
    /// widgets of rows for which the delegate takes the same identifier again, with focus and
    /// caret, and the selection by index, but for rows that are gone or may no longer be selected.
    /// A press that was not released yet comes to nothing.
    void reloadData();
    [[nodiscard]] int numberOfRows() const { return heights_.count(); }

    /// Asks again for the heights of the rows from `first` to `last`, both included. What lies at
    /// the upper edge of the view may move.
    void noteHeightOfRowsChanged(int first, int last);

    /// All rows are this high, and the delegate is not asked; absent at the start. Set before reloading.
    void setUniformRowHeight(std::optional<int> height);
    [[nodiscard]] std::optional<int> uniformRowHeight() const { return uniformRowHeight_; }
    /// Added to each row's height, half of it above the row's view. 0 at the start. Set before reloading.
    void setIntercellSpacing(int spacing);
    [[nodiscard]] int intercellSpacing() const { return spacing_; }
    /// Free room around the rows, which scrolls with them. Left and right change sides in a
    /// right-to-left layout.
    void setContentInsets(const QMargins& insets);
    [[nodiscard]] QMargins contentInsets() const { return insets_; }
    void setSelectionHighlightStyle(TableViewSelectionStyle style);
    [[nodiscard]] TableViewSelectionStyle selectionHighlightStyle() const { return style_; }

    /// The height of all rows with the insets above and below.
    [[nodiscard]] int contentHeight() const;
    /// The row with its spacing, in the content; null for a row that is none.
    [[nodiscard]] QRect rectOfRow(int row) const;
    /// The part of the content that is on the screen.
    [[nodiscard]] QRect visibleRect() const;
    /// The row at a point of the viewport; -1 if none.
    [[nodiscard]] int rowAtPoint(const QPoint& viewportPoint) const;
    /// The row's rectangle in the viewport, also for a row outside.
    [[nodiscard]] QRect viewportRectOfRow(int row) const;

    /// A widget with this `objectName()` that no row needs now; null if there is none. Only for use
    /// within `TableViewDelegate::viewForRow`, which must set everything that the row needs: the
    /// widget shows what its last row was.
    [[nodiscard]] QWidget* makeView(const QString& identifier);
    /// The widgets of a row that is on the screen, else null. A row that the keyboard focus is in
    /// keeps its widgets also when it is scrolled off.
    [[nodiscard]] QWidget* viewAtRow(int row) const;
    [[nodiscard]] TableRowView* rowViewAtRow(int row) const;
    /// The row that shows this widget or one that it is in; -1 if none does.
    [[nodiscard]] int rowForView(const QWidget* view) const;

    void setAllowsMultipleSelection(bool allows);
    [[nodiscard]] bool allowsMultipleSelection() const { return allowsMultiple_; }
    /// Whether the user can get rid of the selection. On at the start.
    void setAllowsEmptySelection(bool allows) { allowsEmpty_ = allows; }
    [[nodiscard]] bool allowsEmptySelection() const { return allowsEmpty_; }
    /// The row that was selected last; -1 if none is.
    [[nodiscard]] int selectedRow() const { return selectedRow_; }
    [[nodiscard]] const TableViewRowSet& selectedRowIndexes() const { return selection_; }
    [[nodiscard]] bool isRowSelected(int row) const { return selection_.contains(row); }
    /// Selects the rows, besides those selected if `extending` and several may be. Rows that are
    /// none are left out; of several for a table of one, the last is taken. The delegate is told,
    /// and not asked.
    void selectRowIndexes(const TableViewRowSet& rows, bool byExtendingSelection);
    void deselectRow(int row);
    void deselectAll();

    /// Moves the selection as the keys do, and scrolls it into view: over rows that may not be
    /// selected, staying at the ends; from nowhere, down takes the first row and up the last. For
    /// whoever keeps the keyboard while the user walks here, as a search field does. False if
    /// nothing moved.
    bool walk(TableViewStep step, bool byExtendingSelection = false);
    /// Whether typing selects the row that begins with what was typed. On at the start.
    void setAllowsTypeSelect(bool allows) { allowsTypeSelect_ = allows; }
    [[nodiscard]] bool allowsTypeSelect() const { return allowsTypeSelect_; }

    /// The row of the last click, while the delegate is told of it; -1 otherwise.
    [[nodiscard]] int clickedRow() const { return clickedRow_; }
    /// The row that `TableViewDelegate::pointerDidHoverRow` told last; -1 if none is under the pointer,
    /// or the pointer counts as absent.
    [[nodiscard]] int hoveredRow() const;
    /// The pointer counts as absent until it moves, as after a walk: the keyboard leads.
    void ignorePointerUntilItMoves();
    /// Tells the delegate of a click on the row, as the pointer does and a screen reader may.
    void clickRow(int row);

    /// Scrolls by as little as possible; a row higher than the view comes with its upper edge. The first
    /// and the last row come with the insets beyond them.
    void scrollRowToVisible(int row);

    /// As wide as the frame needs, and as high as all rows.
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
    friend class TableViewRows;

    [[nodiscard]] bool maySelect(int row) const;
    [[nodiscard]] int nextSelectable(int from, int by) const;
    [[nodiscard]] int stepTarget(TableViewStep step) const;
    [[nodiscard]] int pageTarget(int by) const;
    void select(const TableViewRowSet& rows, int selectedRow, bool leads = false);
    void selectByUser(int row, Qt::KeyboardModifiers modifiers);
    [[nodiscard]] TableViewRowSet selectableRows(int first, int last) const;
    void extendTo(int row);
    void dropInvalidSelection();
    bool typeSelect(const QKeyEvent& event);

    [[nodiscard]] int heightWithSpacing(int row) const;
    void measureRows();
    void updateScrollBar();
    void layoutRows();
    void updateEmphasis();

    TrackedPointer<TableViewDataSource> dataSource_;
    TrackedPointer<TableViewDelegate> delegate_;
    TableViewRowHeights heights_;
    std::unique_ptr<TableViewRows> rows_;
    std::unique_ptr<TableViewHover> hover_;
    std::optional<int> uniformRowHeight_;
    int spacing_ = 0;
    QMargins insets_;
    TableViewSelectionStyle style_ = TableViewSelectionStyle::regular;
    TableViewRowSet selection_;
    int selectedRow_ = -1;
    int anchorRow_ = -1; // where a selection extended by Shift began
    int pressedRow_ = -1;
    int clickedRow_ = -1;
    bool allowsMultiple_ = false;
    bool allowsEmpty_ = true;
    bool allowsTypeSelect_ = true;
    bool emphasized_ = false; // the keyboard is in here
    bool isLayingOut_ = false;
    TableViewTypeSelect typeSelect_;
    QElapsedTimer typingTime_;
    TableViewWheel wheel_;
};

} // namespace quor::platform
