// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Lifetime/Subscription.h"

#include <atomic>
#include <functional>
#include <memory>

namespace quor::platform {

/// One piece of work with a beginning, an end, and the wish to be cancelled.
///
/// Override `main()` for work that is done when it returns. For work that ends later than that,
/// override `isAsynchronous()` to answer true, and `start()`, `isExecuting()` and `isFinished()` to
/// keep the two states yourself; call `didChangeValueForKey` after each change of one. Such an
/// operation is over when it announces `isFinished`, on whatever thread, and not when `start()`
/// returns.
///
/// Held by `std::shared_ptr`; a queue keeps it until it has finished. All operations may be called on
/// any thread.
class Operation {
public:
    /// What observers can follow.
    enum class Key { isExecuting, isFinished };

    Operation();
    virtual ~Operation();
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;

    /// Runs `main()` between the two changes of `isExecuting`, then finishes; a cancelled operation
    /// finishes at once. A queue calls this, on a thread of its own. A second call does nothing.
    virtual void start();

    /// The work. It should look at `isCancelled()` now and then. Must not throw.
    virtual void main();

    /// Asks the operation to end early. Before its start this keeps `main()` from running; the
    /// operation still goes through `start()`, and so finishes. Afterwards it is up to `main()`.
    virtual void cancel();

    [[nodiscard]] virtual bool isCancelled() const;
    [[nodiscard]] virtual bool isExecuting() const;
    [[nodiscard]] virtual bool isFinished() const;
    [[nodiscard]] virtual bool isAsynchronous() const;

    /// Calls `changed` after each announced change of `key`, on the thread that announces it, for as
    /// long as the result lives. A call under way on another thread may outlast the result.
    Subscription observe(Key key, std::function<void()> changed);

protected:
    /// Tells the observers of `key`. After `isFinished` the operation may be gone: touch nothing of
    /// it behind this call unless you hold it.
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
