// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Concurrency/Operation.h"

#include <functional>
#include <memory>
#include <thread>
#include <vector>

namespace quor::platform {

/// Runs operations on threads of its own, in the order in which they were added, so many at a time.
///
/// An operation takes a slot from its start until it has finished; for an asynchronous one that is
/// when it says so. Threads start with the first operation that needs them, at most `width()` of
/// them, and end with the queue.
///
/// All operations may be called on any thread.
class OperationQueue final {
public:
    /// `width`: how many operations run at a time, at least 1.
    explicit OperationQueue(int width = static_cast<int>(std::thread::hardware_concurrency()));

    /// Cancels every operation and returns once each has been through its `start()`; one that is
    /// asynchronous and still executing then lives on by itself until it has finished. May run within
    /// one of the queue's own operations.
    ~OperationQueue();
    OperationQueue(const OperationQueue&) = delete;
    OperationQueue& operator=(const OperationQueue&) = delete;

    /// Adds an operation that has not been started and stands in no queue.
    void add(std::shared_ptr<Operation> operation);
    void add(std::function<void()> work);

    /// Cancels what runs and what waits. What waits still goes through `start()`, in its turn.
    void cancelAll();

    /// Returns when nothing runs or waits any more. While the queue is suspended with operations
    /// waiting, that is not before it is resumed. From within one of the queue's own operations it
    /// could never return: a fatal error.
    void waitUntilAllAreFinished();

    [[nodiscard]] int width() const;
    /// A smaller width stops nothing that runs already.
    void setWidth(int width);

    [[nodiscard]] bool isSuspended() const;
    /// While suspended no operation is started; those that run go on.
    void setSuspended(bool suspended);

    /// How many operations run or wait.
    [[nodiscard]] int operationCount() const;

private:
    struct State;

    void startThreads();

    std::shared_ptr<State> state_;
    std::vector<std::thread> threads_; ///< guarded by the state's mutex
};

} // namespace quor::platform
