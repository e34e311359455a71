// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Concurrency/MainQueue.h"

#include <functional>

namespace quor::toolkit {

/// A one-shot delay that can be started anew: of a burst of calls only the last one's closure runs,
/// `delay` seconds after that call.
///
///     search_.run([self = QPointer(this)] {
///         if (self)
///             self->search();
///     });
///
/// Its end withdraws nothing: a pending closure still runs. An owner that wants it gone calls
/// `cancel` first. Main thread only; closures run on the main queue.
class DelayedAction final {
public:
    /// `delay` in seconds; 0, less, or not a number means the main queue's next turn.
    explicit DelayedAction(double delay);
    DelayedAction(const DelayedAction&) = delete;
    DelayedAction& operator=(const DelayedAction&) = delete;

    /// Forgets the pending closure, if any, and puts this one in its place. A closure may call
    /// `run` again, or end this object.
    void run(std::function<void()> action);

    /// Forgets the pending closure. Harmless when nothing is pending.
    void cancel();

    [[nodiscard]] double delay() const { return delay_; }
    [[nodiscard]] bool isPending() const { return waitWorkItem_.isPending(); }

private:
    platform::WorkItem waitWorkItem_;
    double delay_;
};

} // namespace quor::toolkit
