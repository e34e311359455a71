// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Subscription.h"

#include <functional>
#include <vector>

class QRegion;
class QWidget;
class QWindow;

namespace quor::platform {

/// The functions of the window system that alerts and windows which open like a menu need, and that Qt does
/// not offer. Implementations connect to nothing before the first call. Main thread only.
class WindowServer {
public:
    virtual ~WindowServer() = default;

    /// Whether translucent windows show what lies below them. Without compositing they show black there.
    [[nodiscard]] virtual bool isCompositing() = 0;

    /// Calls `changed` after each change of `isCompositing`, until the returned subscription ends, which
    /// must happen before this object is destroyed.
    virtual Subscription observeCompositing(std::function<void()> changed) = 0;

    /// Puts a window on all virtual desktops, keeps it out of task bars and pagers, and has its whole
    /// content repainted when it is resized. Call it once, on a top-level window that has its geometry
    /// and was not shown yet. Creates the native window.
    virtual void prepareMenuWindow(QWidget& window) = 0;

    /// Limits what is seen of a top-level window, and what of it gets presses, to `shape`, in device pixels
    /// of the window. An empty region ends that. The native window must exist, and forgets its shape when it
    /// ends. This implementation uses the mask of the widget, which has only device-independent pixels.
    virtual void setShape(QWidget& window, const QRegion& shape);

    /// Sends all keys to `window`, which must be shown, without changing the active window. Returns false
    /// if the window system cannot do that, or if another program holds the keyboard at the moment;
    /// in that case a later call can succeed.
    [[nodiscard]] virtual bool grabKeyboard(QWindow& window) = 0;

    /// Ends the grab of `window`, so that the keys go to the active window again. The window system has got
    /// the request when this returns, also if the caller then blocks the thread.
    virtual void releaseKeyboard(QWindow& window) = 0;

    /// Returns the windows of this application that are on the screen, the frontmost first. Returns an empty
    /// list if the window system does not report the order.
    [[nodiscard]] virtual std::vector<QWindow*> orderedWindows() = 0;

    /// Whether global event monitors can miss presses in windows of other applications. This is so in a
    /// Wayland session, where the X server reports only presses in windows of its own clients.
    [[nodiscard]] virtual bool missesPresses() const = 0;
};

} // namespace quor::platform
