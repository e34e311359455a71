// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Trackable.h"

#include <functional>
#include <memory>

class QWidget;

namespace quor::platform {
class DisplayLink;
}

namespace quor::toolkit {

/// Calls a handler once for every refresh of the main screen, while it is running. For animations.
///
/// Frames are not coalesced: those that pass while the main thread is busy are all made up for
/// afterwards. A running link keeps to its screen when another becomes the main one. Holds the window
/// that it belongs to. Main thread only, the handler too.
class DisplayLinkScheduler final : public platform::Trackable {
public:
    explicit DisplayLinkScheduler(std::shared_ptr<QWidget> window);
    ~DisplayLinkScheduler(); ///< No frame reaches the handler afterwards.

    /// May be set at any time; empty lets frames go by. It may end this object.
    std::function<void()> updateHandler;

    [[nodiscard]] const std::shared_ptr<QWidget>& window() const { return window_; }

    /// Off at first. Stays off while there is no screen; to be tried again. Frames that passed before
    /// it was switched off can still reach the handler.
    void setRunning(bool on);
    [[nodiscard]] bool isRunning() const { return displayLink_ != nullptr; }

private:
    void start();
    void update() const;

    std::unique_ptr<platform::DisplayLink> displayLink_;
    std::shared_ptr<QWidget> window_;
};

} // namespace quor::toolkit
