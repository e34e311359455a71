// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QWindow>

#include <optional>

namespace quor::platform {

class TableView;

/// Follows the pointer over the rows of a `TableView` and tells the table's delegate.
///
/// It looks at the window's own events, since a row's widgets get moves only if they ask for them.
class TableViewHover final : public QObject {
public:
    explicit TableViewHover(TableView& table);

    void watch(QWindow* window);
    /// Rows lie elsewhere now, or the view does.
    void contentMoved();
    /// The pointer counts as absent until it moves: the keyboard leads.
    void sleep();
    /// The pointer does something here other than move.
    void wake(const QPoint& globalPosition);

    [[nodiscard]] int row() const { return row_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void pointerMoved(const QPoint& globalPosition);
    void pointerLeft();
    void tell(int row);
    /// The row at the pointer, -1 for none; absent where something else lies there.
    [[nodiscard]] std::optional<int> rowUnderPointer() const;

    TableView& table_;
    QPointer<QWindow> window_;
    std::optional<QPoint> position_; // of the pointer, on the screen
    int row_ = -1;
    bool hasMoved_ = false; // since the pointer came, or the window came under it
    bool awake_ = false;
    bool told_ = false; // a hover without a leave yet
};

} // namespace quor::platform
