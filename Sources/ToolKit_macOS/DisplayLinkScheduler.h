// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Callback.h"
#include "Platform/Lifetime/Trackable.h"

#include <memory>

class QWidget;

namespace quor::platform {
class DisplayLink;
}

namespace quor::toolkit {

/// A clock for animations: while it runs, it calls a handler once for every refresh of the main screen.
///
/// Frames are not coalesced: if the main thread is busy for several frames, the handler is called once for
/// each of them afterwards. A running link stays with its screen when another one becomes the main screen.
/// Shares ownership of the window that it belongs to. Main thread only, also for the handler.
class DisplayLinkScheduler final : public platform::Trackable {
public:
    explicit DisplayLinkScheduler(std::shared_ptr<QWidget> window);
    ~DisplayLinkScheduler(); ///< The handler is not called afterwards.

    /// May be set at any time, and may delete this object.
    platform::Callback<void()> updateHandler;

    [[nodiscard]] const std::shared_ptr<QWidget>& window() const { return window_; }

    /// The default is off. Stays off if there is no screen, or if the system gives no further thread; the
    /// caller can try again later. After it was switched off, the handler can still be called for frames that
    /// passed before.
    void setRunning(bool on);
    [[nodiscard]] bool isRunning() const { return displayLink_ != nullptr; }

private:
    void start();

    std::unique_ptr<platform::DisplayLink> displayLink_;
    std::shared_ptr<QWidget> window_;
};

} // namespace quor::toolkit
