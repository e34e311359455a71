// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Subscription.h"

#include <functional>

class QWidget;
class QWindow;

namespace quor::platform {

/// What a window that opens like a menu asks of the window system, and Qt does not offer.
///
/// Nothing is set up before the first call, so a program that opens no such window pays nothing.
/// Main thread only.
class WindowServer {
public:
    virtual ~WindowServer() = default;

    /// Whether a translucent window is mixed with what lies behind it, rather than with black.
    [[nodiscard]] virtual bool isCompositing() = 0;

    /// Calls `changed` after each change of `isCompositing`, for as long as the result lives, which may
    /// not outlive this object.
    virtual Subscription observeCompositing(std::function<void()> changed) = 0;

    /// Has the window on all virtual desktops and in no list of windows, and its content painted anew as
    /// a whole when it is resized. To be called on a top-level window that has its place and size and was
    /// not shown yet; it becomes native by this.
    virtual void prepareMenuWindow(QWidget& window) = 0;

    /// Has every key go to `window`, which must be shown, while the active window stays what it is.
    /// False where that cannot be, or not now because somebody else has the keys: then try again.
    [[nodiscard]] virtual bool grabKeyboard(QWindow& window) = 0;
    virtual void releaseKeyboard(QWindow& window) = 0;

    /// Whether presses in the windows of other applications can go unseen, as in a Wayland session,
    /// where the X server shows only those of its own clients.
    [[nodiscard]] virtual bool missesPresses() const = 0;
};

} // namespace quor::platform
