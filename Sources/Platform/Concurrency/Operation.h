// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Subscription.h"

#include <atomic>
#include <functional>
#include <memory>

namespace quor::platform {

/// One piece of work that can be observed and cancelled, usually run by an `OperationQueue`.
///
/// For work that is done when a function returns, override `main()`. For work that ends later, override
/// `isAsynchronous()` to return true, and override `start()`, `isExecuting()` and `isFinished()`. The
/// subclass then keeps these two states itself and calls `didChangeValueForKey` after each change of one,
/// on any thread. Such an operation has finished when it announces `isFinished`, not when `start()` returns.
///
/// Always owned by a `std::shared_ptr`; a queue shares it until it has finished. Any thread.
class Operation {
public:
    /// The states that can be observed.
    enum class Key { isExecuting, isFinished };

    Operation();
    virtual ~Operation();
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;

    /// Runs `main()` and finishes. `isExecuting` is true while `main()` runs. A cancelled operation
    /// finishes without running `main()`. Called once by the queue, on a thread of the queue; further
    /// calls have no effect.
    virtual void start();

    /// Does the work. Long work should return early once `isCancelled()` is true. Must not throw.
    virtual void main();

    /// Requests the operation to end early. If it has not started, `main()` will not run, but `start()`
    /// must still be called for the operation to finish. If it has started, `main()` decides.
    virtual void cancel();

    [[nodiscard]] virtual bool isCancelled() const;
    [[nodiscard]] virtual bool isExecuting() const;
    [[nodiscard]] virtual bool isFinished() const;
    [[nodiscard]] virtual bool isAsynchronous() const;

    /// Calls `changed` after each announced change of `key`, on the thread that announces it, until the
    /// returned subscription ends. A call that is under way on another thread at that moment continues.
    /// Changes before this call are not reported, not even that the operation has finished.
    Subscription observe(Key key, std::function<void()> changed);

protected:
    /// Calls the observers of `key`. When `isFinished` is announced, an observer can release the last
    /// reference to this operation, so do not use its members after that call.
    void didChangeValueForKey(Key key);

private:
    class Observers;

    std::shared_ptr<Observers> observers_;
    std::atomic<bool> isStarted_ = false;
    std::atomic<bool> isCancelled_ = false;
    std::atomic<bool> isExecuting_ = false;
    std::atomic<bool> isFinished_ = false;
};

} // namespace quor::platform
