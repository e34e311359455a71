// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QWindow>

#include <optional>

namespace quor::platform {

class TableView;

/// Follows the pointer over the rows of a `TableView`, and reports each move to the table's delegate. Rows
/// that come under a resting pointer are not reported.
///
/// It watches the events of the window, since a row's widgets get moves of the pointer only if they ask
/// for them.
class TableViewHover final : public QObject {
public:
    explicit TableViewHover(TableView& table);

    /// Sets the window that the table is in now; null if it is in no window.
    void watch(QWindow* window);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void pointerMoved(const QPoint& globalPosition);
    void pointerLeft();
    /// The row at the pointer; -1 if no row is there, `nullopt` if the pointer is not over the viewport.
    [[nodiscard]] std::optional<int> rowUnderPointer() const;

    TableView& table_;
    QPointer<QWindow> window_;
    std::optional<QPoint> position_; // of the pointer, in screen coordinates
    bool hasMoved_ = false; // since the pointer entered the window, or the window came under it
    bool isOverRows_ = false; // as last reported
};

} // namespace quor::platform
