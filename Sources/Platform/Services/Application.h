// SPDX-License-Identifier: MIT
#pragma once

class QWidget;

namespace quor::platform {

/// The running application as an object that can be asked to end, and to take the keyboard. Main thread only.
class Application {
public:
    virtual ~Application() = default;

    /// Ends the event loop, and with it the process, once the current event is done.
    virtual void terminate() = 0;

    /// Gives the keyboard to a shown top-level window of this process, also where the user was busy
    /// elsewhere. Where the desktop has yet to bring the window up, it gets the keyboard then.
    virtual void activate(QWidget& window) = 0;
};

} // namespace quor::platform
