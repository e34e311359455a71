// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Callback.h"
#include "Platform/Lifetime/Subscription.h"
#include "Platform/Views/Popover/PopoverDismissal.h"
#include "Platform/Views/Popover/PopoverFrame.h"
#include "Platform/Views/RectEdge.h"

#include <QPointer>
#include <QPropertyAnimation>
#include <QWidget>

#include <chrono>
#include <memory>
#include <optional>

namespace quor::platform {

class PopoverAnchor;
class WindowServer;

/// The window of a popover: shows a content beside its anchor, with a frame and an arrow, until the user
/// makes it an ordinary window by dragging its background.
///
/// Asks its owner for everything that can end it, and may be ended by `discard` in each of the callbacks.
class PopoverWindow final : public QWidget {
    Q_OBJECT

public:
    /// A child of the window of `view`. Needs the size of its content and an anchor before it is opened.
    PopoverWindow(WindowServer& windowServer, QWidget& content, QWidget& view);
    ~PopoverWindow() override;

    Callback<void()> closeRequested; ///< The user wants to close it, by Escape or by its title bar.
    Callback<void()> anchorLost; ///< It can stay no longer.
    Callback<void(PopoverExit)> userTurnedAway;
    Callback<bool()> cancelContent; ///< Escape without a focused view in the content. True if it was used.
    Callback<bool()> mayDetach;

    /// Places the window on the `edge` side of the anchor. `view` must be in the window that this one belongs
    /// to.
    void setAnchor(QWidget& view, const QRect& rect, RectEdge edge);
    /// Takes `duration` if the window is visible.
    void setContentSize(QSize size, std::chrono::milliseconds duration);
    /// Shows the window, with the keyboard. It is complete when this returns, and gets opaque in `fade`.
    void open(std::chrono::milliseconds fade);
    /// Hides and deletes this window, and gives the keyboard back to the window that it belongs to. The
    /// content is without a parent when this returns.
    void discard();

    [[nodiscard]] bool isDetached() const { return state_ != State::attached; }

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void moveEvent(QMoveEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    enum class State {
        attached, ///< Has an arrow to its anchor.
        dragged, ///< Was torn off, and follows the pointer.
        window ///< Has a title bar.
    };
    struct Drag {
        QPoint pointer; ///< In screen coordinates, at the press.
        QPoint window;
    };

    void watchAnchor(QWidget& view, const QRect& rect);
    void place(std::chrono::milliseconds duration);
    void updateFrame();
    void updateShape();
    void tearOff();
    void becomeWindow();
    [[nodiscard]] int inset() const { return state_ == State::window ? 0 : PopoverFrame::inset; }

    WindowServer& windowServer_;
    QPointer<QWidget> content_;
    std::unique_ptr<PopoverAnchor> anchor_;
    std::unique_ptr<PopoverDismissal> dismissal_; ///< Null while detached.
    Subscription compositing_;
    QPropertyAnimation resizing_;
    QPropertyAnimation fading_;
    QSize contentSize_;
    RectEdge edge_ = RectEdge::maxY; ///< The side of the anchor on which the window is.
    int tip_ = 0; ///< What the arrow points to, in screen coordinates along the edge.
    PopoverFrame frame_;
    State state_ = State::attached;
    std::optional<Drag> drag_; ///< Set while the background is pressed.
    bool isCompositing_;
};

} // namespace quor::platform
