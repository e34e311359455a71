// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Concurrency/DispatchQueue.h"
#include "Platform/Concurrency/Operation.h"
#include "Platform/Lifetime/Callback.h"

#include <atomic>
#include <memory>

namespace quor::toolkit {

/// Base class of an operation whose work continues after the call that starts it has returned.
///
/// A subclass overrides `work()` to start its work, and calls `finish()` when the work is done, at any later
/// time and on any thread. In a queue the operation occupies a slot until then. Its state goes from ready to
/// executing to finished and never back. A cancelled operation finishes without `work()`. Operations are held
/// by `std::shared_ptr`; outside a queue, the subclass must keep a reference to itself while it works.
class AsyncOperation : public platform::Operation, public std::enable_shared_from_this<AsyncOperation> {
public:
    AsyncOperation();

    /// Called once when the operation ends, on the thread that ends it, while `isExecuting()` is still true
    /// and `isFinished()` still false. Set it before the operation starts. It may release the last other
    /// reference to this operation.
    [[nodiscard]] virtual platform::Callback<void()> finishHandler() const;
    virtual void setFinishHandler(platform::Callback<void()> finishHandler);

    void start() override;
    void main() override;

    [[nodiscard]] bool isAsynchronous() const override { return true; }
    [[nodiscard]] bool isExecuting() const override;
    [[nodiscard]] bool isFinished() const override;

protected:
    /// Starts the work. Not called if the operation is cancelled before it starts. Must lead to a call of
    /// `finish()`; this implementation is empty.
    virtual void work();

    /// Ends the operation: calls `finishHandler()`, then changes the state to finished. A second call has no
    /// effect. The operation may have been deleted when this returns.
    virtual void finish();

private:
    void end();
    void set(bool& flag, Key key, bool value);

    platform::Callback<void()> finishHandler_;
    mutable platform::DispatchQueue lockQueue_; ///< guards the two flags
    bool isExecuting_ = false;
    bool isFinished_ = false;
    std::atomic<bool> isStarted_ = false;
    std::atomic<bool> isEnding_ = false;
};

} // namespace quor::toolkit
