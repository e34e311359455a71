// SPDX-License-Identifier: MIT
#pragma once

namespace quor::platform {

/// The running application as an object that can be asked to end. Main thread only.
class Application {
public:
    virtual ~Application() = default;

    /// Ends the event loop, and with it the process, once the current event is done.
    virtual void terminate() = 0;
};

} // namespace quor::platform
