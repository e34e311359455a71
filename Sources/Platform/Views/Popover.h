// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Trackable.h"
#include "Platform/Views/RectEdge.h"

#include <QPointer>
#include <QRect>
#include <QSize>

#include <chrono>
#include <memory>
#include <optional>

class QWidget;

namespace quor::platform {

class Appearance;
class Popover;
class PopoverWindow;
class ViewController;
class WindowServer;

/// Decides about a popover, and learns when it has closed. Each function may end the popover.
class PopoverDelegate {
public:
    /// Whether the popover may close for Escape or for a press elsewhere.
    [[nodiscard]] virtual bool popoverShouldClose(Popover& popover);
    /// Whether the user may make the popover a window of its own by dragging it.
    [[nodiscard]] virtual bool popoverShouldDetach(Popover& popover);
    virtual void popoverDidClose(Popover& popover);

protected:
    PopoverDelegate() = default;
    ~PopoverDelegate() = default;
};

/// A panel with an arrow that points to a rectangle of a view, its anchor. Shows the view of a controller.
///
/// The panel takes the keyboard. It stays on the screen: it flips to the other side of its anchor and then
/// slides along it. It follows the anchor as the window moves, and closes when the anchor's window is hidden
/// or ends. Dragging the background of the panel makes it a window with a title bar, if the delegate permits
/// that. Sizes are in device-independent pixels. Main thread only.
class Popover : public Trackable {
public:
    enum class Behavior {
        applicationDefined = 0, ///< only `close`, the Escape key and the end of the anchor's window close it
        transient = 1, ///< a press anywhere outside it closes it, and so does the loss of the keyboard
        semitransient = 2 ///< a press in the anchor's window closes it
    };

    /// `windowServer` and `appearance` must outlive the popover.
    Popover(WindowServer& windowServer, const Appearance& appearance);
    /// Closes the popover without a call of its delegate.
    virtual ~Popover();

    [[nodiscard]] Behavior behavior() const { return behavior_; }
    void setBehavior(Behavior behavior) { behavior_ = behavior; }
    /// Whether opening and changes of size are animated, if the desktop animates. True at first.
    [[nodiscard]] bool animates() const { return animates_; }
    void setAnimates(bool animates) { animates_ = animates; }
    /// Null at first. The delegate must outlive the popover, or set null before it ends.
    [[nodiscard]] PopoverDelegate* delegate() const { return delegate_; }
    void setDelegate(PopoverDelegate* delegate) { delegate_ = delegate; }

    /// The controller whose view is shown; shared. Null at first. Set it before `show`.
    [[nodiscard]] const std::shared_ptr<ViewController>& contentViewController() const { return content_; }
    void setContentViewController(std::shared_ptr<ViewController> controller);

    /// The size of the content, without arrow and frame. At first the size hint of the content's view. The
    /// content is shown smaller while the screen has too little room.
    [[nodiscard]] QSize contentSize() const;
    void setContentSize(QSize size);

    /// Shows the popover on the `preferredEdge` side of `anchor`, a rectangle of `view`; `minX` is the side
    /// on which lines begin, so the right one in a right-to-left layout. Ignored if `view` is not visible or
    /// if there is no content. A popover that is shown already goes to the new anchor.
    virtual void show(const QRect& anchor, QWidget& view, RectEdge preferredEdge);

    /// Closes without asking the delegate. `popoverDidClose` is called before this returns.
    void close();
    /// Closes if the delegate agrees. Returns whether it did.
    bool performClose();

    [[nodiscard]] bool isShown() const;
    /// Whether the user has made this popover a window of its own.
    [[nodiscard]] bool isDetached() const;
    /// The window of the popover. Null while it is not shown.
    [[nodiscard]] QWidget* window() const;

    /// Whether `window` is the window of a popover, attached or detached.
    [[nodiscard]] static bool isWindowOfPopover(const QWidget& window);

private:
    void connectWindow();
    void discardWindow();
    [[nodiscard]] std::chrono::milliseconds durationOf(
        std::chrono::milliseconds wanted, const QWidget& view) const;

    WindowServer& windowServer_;
    const Appearance& appearance_;
    Behavior behavior_ = Behavior::transient;
    bool animates_ = true;
    PopoverDelegate* delegate_ = nullptr;
    std::shared_ptr<ViewController> content_;
    std::optional<QSize> contentSize_;
    QPointer<PopoverWindow> window_; ///< Null while the popover is not shown. A child of the anchor's window.
};

} // namespace quor::platform
