// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Concurrency/DispatchQueue.h"
#include "Platform/Concurrency/Operation.h"

#include <atomic>
#include <functional>
#include <memory>

namespace quor::toolkit {

/// Base of an operation whose work ends later than the call that starts it.
///
/// A subclass overrides `work()` and ends by calling `finish()`, at any later time and on any thread.
/// In a queue it takes its slot until then. It goes from ready to executing to finished and never
/// back; a cancelled one finishes without `work()`. Like every `Operation` it is held by
/// `std::shared_ptr`, which the subclass must see to while its work is under way outside a queue.
class AsyncOperation : public platform::Operation, public std::enable_shared_from_this<AsyncOperation> {
public:
    AsyncOperation();

    /// Called once, just before the operation counts as finished, on the thread that ends it. Set it
    /// before the operation starts.
    [[nodiscard]] virtual std::function<void()> finishHandler() const;
    virtual void setFinishHandler(std::function<void()> finishHandler);

    void start() override;
    void main() override;

    [[nodiscard]] bool isAsynchronous() const override { return true; }
    [[nodiscard]] bool isExecuting() const override;
    [[nodiscard]] bool isFinished() const override;

protected:
    /// What is to be done; nothing here. Not called for an operation that was cancelled before.
    virtual void work();

    /// Ends the operation; a second call does nothing. The operation may be gone when it returns.
    virtual void finish();

private:
    void end();
    void set(bool& flag, Key key, bool value);

    std::function<void()> finishHandler_;
    mutable platform::DispatchQueue lockQueue_; ///< guards the two flags
    bool isExecuting_ = false;
    bool isFinished_ = false;
    std::atomic<bool> isStarted_ = false;
    std::atomic<bool> isEnding_ = false;
};

} // namespace quor::toolkit
