// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Concurrency/MainQueue.h"

#include <functional>

namespace quor::toolkit {

/// A delay that each call of `run` restarts: of a burst of calls only the closure of the last one runs,
/// `delay` seconds after that call.
///
///     search_.run(platform::whileAlive(*this, [this] { search(); }));
///
/// Destroying a `DelayedAction` does not withdraw a pending closure: it still runs. An owner that does not
/// want that calls `cancel` first. Main thread only; closures run on the main queue.
class DelayedAction final {
public:
    /// `delay` is in seconds. 0, a negative number and NaN mean the next turn of the main queue.
    explicit DelayedAction(double delay);
    DelayedAction(const DelayedAction&) = delete;
    DelayedAction& operator=(const DelayedAction&) = delete;

    /// Replaces the pending closure, if any, and restarts the delay. A closure may call `run` again and may
    /// delete this object.
    void run(std::function<void()> action);

    /// Withdraws the pending closure. Has no effect if none is pending.
    void cancel();

    [[nodiscard]] double delay() const { return delay_; }
    [[nodiscard]] bool isPending() const { return waitWorkItem_.isPending(); }

private:
    platform::WorkItem waitWorkItem_;
    double delay_;
};

} // namespace quor::toolkit
