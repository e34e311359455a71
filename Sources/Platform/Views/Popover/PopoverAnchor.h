// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Callback.h"

#include <QObject>
#include <QPointer>
#include <QRect>

#include <optional>
#include <vector>

class QWidget;

namespace quor::platform {

/// A rectangle of a view that is followed as the view and its window move on the screen.
class PopoverAnchor final : public QObject {
    Q_OBJECT

public:
    /// `rect` is in the coordinates of `view`. If it is the whole view, it follows the size of the view.
    PopoverAnchor(QWidget& view, const QRect& rect);

    /// Called from the event loop after the rectangle may have moved on the screen.
    Callback<void()> moved;
    /// Called when the window has been hidden or is about to end; from the event loop when the view has been
    /// hidden, has ended, or is in another window.
    Callback<void()> lost;

    /// The rectangle in screen coordinates; of a rectangle that is scrolled out of sight, the nearest part of
    /// what can be seen.
    [[nodiscard]] QRect onScreen() const;
    /// Whether the point, in screen coordinates, is in the view.
    [[nodiscard]] bool viewContains(QPoint point) const;
    /// The top-level window of the view. Null after it has ended.
    [[nodiscard]] QWidget* window() const { return window_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void watchAncestors();
    void checkLater();
    void check();

    QPointer<QWidget> view_;
    QPointer<QWidget> window_;
    std::optional<QRect> rect_; ///< Empty for the whole view.
    std::vector<QPointer<QWidget>> watched_; ///< The view, and what it is in.
    bool willCheck_ = false;
};

} // namespace quor::platform
