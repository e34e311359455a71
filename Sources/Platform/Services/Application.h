// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace quor::platform {

/// The running application. Main thread only.
class Application {
public:
    virtual ~Application() = default;

    /// Ends the event loop, and with it the process, after the current event has been handled. Windows
    /// cannot refuse this.
    virtual void terminate() = 0;

    /// Gives the keyboard to `window`, even while the user is working in another application. `window`
    /// must be a top-level window of this process for which `show()` was called. If the desktop has not
    /// yet put it on the screen, it gets the keyboard as soon as the desktop does.
    virtual void activate(QWidget& window) = 0;
};

} // namespace quor::platform
