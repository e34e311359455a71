// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QWindow>

#include <optional>

namespace quor::platform {

class TableView;

/// Follows the pointer over the rows of a `TableView`, and reports to the table's delegate.
///
/// It watches the events of the window, since a row's widgets get moves of the pointer only if they ask
/// for them.
class TableViewHover final : public QObject {
public:
    explicit TableViewHover(TableView& table);

    /// Sets the window that the table is in now; null if it is in no window.
    void watch(QWindow* window);
    /// Reports the row that lies under a resting pointer now, after the rows or the table have moved.
    void contentMoved();
    /// Reports nothing until the pointer moves.
    void ignorePointerUntilItMoves();
    /// The pointer has acted without a move, as with its wheel: it is no longer ignored if it is over the
    /// rows. `globalPosition` is in screen coordinates.
    void pointerActedAt(const QPoint& globalPosition);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void pointerMoved(const QPoint& globalPosition);
    void pointerLeft();
    void report(int row);
    /// The row at the pointer; -1 if no row is there, `nullopt` if the pointer is not over the viewport.
    [[nodiscard]] std::optional<int> rowUnderPointer() const;

    TableView& table_;
    QPointer<QWindow> window_;
    std::optional<QPoint> position_; // of the pointer, in screen coordinates
    int row_ = -1; // as last reported
    bool hasMoved_ = false; // since the pointer entered the window, or the window came under it
    bool isFollowing_ = false; // the pointer is over the rows, and not ignored
    bool owesLeave_ = false; // the pointer has been over the rows since the last reported leave
};

} // namespace quor::platform
