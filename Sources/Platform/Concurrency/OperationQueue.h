// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Concurrency/Operation.h"

#include <functional>
#include <memory>
#include <thread>
#include <vector>

namespace quor::platform {

/// Starts operations in the order in which they were added, on threads of its own, with a limit on how
/// many run at the same time.
///
/// An operation counts against the limit from its start until it has finished. Threads are created when
/// operations need them, at most `width()`, and end with the queue. Any thread.
class OperationQueue final {
public:
    /// `width` is the number of operations that may run at the same time. Values below 1 mean 1.
    explicit OperationQueue(int width = static_cast<int>(std::thread::hardware_concurrency()));

    /// Cancels all operations, and waits until `start()` has returned for each of them, even if the queue is
    /// suspended. An asynchronous operation that has not finished by then stays alive until it has. One of
    /// the queue's own operations may destroy the queue; the destructor then does not wait for that
    /// operation.
    ~OperationQueue();
    OperationQueue(const OperationQueue&) = delete;
    OperationQueue& operator=(const OperationQueue&) = delete;

    /// Adds an operation, which must not be null, nor have been started or added to a queue before.
    void add(std::shared_ptr<Operation> operation);
    /// Adds an operation that calls `work`.
    void add(std::function<void()> work);

    /// Cancels all operations that run or wait. For waiting ones `start()` is still called, in their order.
    /// Operations that are added later are not cancelled.
    void cancelAll();

    /// Waits until no operation runs or waits. While the queue is suspended and operations wait, it does
    /// not return. Ends the process with an error message if called from one of the queue's own operations
    /// on its thread, as the call would wait for itself.
    void waitUntilAllAreFinished();

    [[nodiscard]] int width() const;
    /// Sets the limit; values below 1 mean 1. Operations that run already continue even if the new limit is
    /// smaller.
    void setWidth(int width);

    [[nodiscard]] bool isSuspended() const;
    /// While suspended, the queue starts no operations; operations that run already continue. The default is
    /// false.
    void setSuspended(bool suspended);

    /// The number of operations that run or wait.
    [[nodiscard]] int operationCount() const;

private:
    struct State;

    void startThreads();

    std::shared_ptr<State> state_;
    std::vector<std::thread> threads_; ///< Guarded by the state's mutex.
};

} // namespace quor::platform
