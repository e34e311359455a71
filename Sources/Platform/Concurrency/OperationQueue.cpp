// SPDX-License-Identifier: MIT
#include "Platform/Concurrency/OperationQueue.h"

#include <QtGlobal>

#include <algorithm>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <utility>

namespace quor::platform {

namespace {

class BlockOperation final : public Operation {
public:
    explicit BlockOperation(std::function<void()> work)
        : work_(std::move(work))
    {
    }
    void main() override
    {
        if (work_)
            work_();
    }

private:
    std::function<void()> work_;
};

} // namespace

// Shared by the queue, its threads and the running operations, any of which can live longest.
struct OperationQueue::State : std::enable_shared_from_this<State> {
    struct Running {
        std::shared_ptr<Operation> operation;
        Subscription finished;
    };

    [[nodiscard]] bool mayStart() const
    {
        if (waiting.empty())
            return false;
        return isEnding || (!isSuspended && running.size() < static_cast<std::size_t>(width));
    }

    [[nodiscard]] bool isIdle() const { return waiting.empty() && running.empty(); }

    void work()
    {
        while (const auto operation = begin())
            run(operation);
    }

    /// Waits for the next operation, and counts it as running. Returns null when the queue ends.
    std::shared_ptr<Operation> begin()
    {
        std::unique_lock lock(mutex);
        changed.wait(lock, [this] { return mayStart() || (isEnding && waiting.empty()); });
        if (waiting.empty())
            return nullptr;
        auto operation = std::move(waiting.front());
        waiting.pop_front();
        running.push_back({operation, {}});
        return operation;
    }

    void run(const std::shared_ptr<Operation>& operation)
    {
        // The closure shares this state, which keeps the operation alive until it has finished.
        auto subscription = operation->observe(
            Operation::Key::isFinished, [state = shared_from_this(), started = operation.get()] {
                if (started->isFinished())
                    state->end(started);
            });
        bool isLate = false; // added while the queue was ending
        {
            const std::lock_guard lock(mutex);
            isLate = isEnding;
            const auto index = indexOf(operation.get());
            if (index < running.size()) // otherwise it has been finished on another thread meanwhile
                running[index].finished = std::move(subscription);
        }
        if (isLate)
            operation->cancel();
        operation->start();
        if (!operation->isAsynchronous() || operation->isFinished())
            end(operation.get());
    }

    /// Counts the operation as running no more. A second call has no effect.
    void end(const Operation* operation)
    {
        // Destroyed after the lock is released, as the operation's destructor may call the queue.
        Running ended;
        const std::lock_guard lock(mutex);
        const auto index = indexOf(operation);
        if (index == running.size())
            return;
        ended = std::move(running[index]);
        running.erase(running.begin() + static_cast<std::ptrdiff_t>(index));
        changed.notify_all();
    }

    [[nodiscard]] std::size_t indexOf(const Operation* operation) const
    {
        const auto found = std::find_if(running.begin(), running.end(),
            [operation](const Running& candidate) { return candidate.operation.get() == operation; });
        return static_cast<std::size_t>(found - running.begin());
    }

    std::mutex mutex;
    std::condition_variable changed;
    std::deque<std::shared_ptr<Operation>> waiting;
    std::vector<Running> running;
    int width = 1;
    bool isSuspended = false;
    bool isEnding = false;
};

OperationQueue::OperationQueue(int width)
    : state_(std::make_shared<State>())
{
    state_->width = std::max(width, 1);
}

OperationQueue::~OperationQueue()
{
    std::vector<std::thread> threads;
    {
        const std::lock_guard lock(state_->mutex);
        state_->isEnding = true;
        threads.swap(threads_);
    }
    cancelAll();
    state_->changed.notify_all();
    for (auto& thread : threads) {
        if (thread.get_id() == std::this_thread::get_id())
            thread.detach();
        else
            thread.join();
    }
}

void OperationQueue::add(std::shared_ptr<Operation> operation)
{
    {
        const std::lock_guard lock(state_->mutex);
        state_->waiting.push_back(std::move(operation));
        startThreads();
    }
    state_->changed.notify_all();
}

void OperationQueue::add(std::function<void()> work)
{
    add(std::make_shared<BlockOperation>(std::move(work)));
}

void OperationQueue::startThreads()
{
    if (state_->isEnding)
        return;
    const auto wanted
        = std::min(state_->waiting.size() + state_->running.size(), static_cast<std::size_t>(state_->width));
    while (threads_.size() < wanted)
        threads_.emplace_back([state = state_] { state->work(); });
}

void OperationQueue::cancelAll()
{
    std::vector<std::shared_ptr<Operation>> operations;
    {
        const std::lock_guard lock(state_->mutex);
        for (const auto& running : state_->running)
            operations.push_back(running.operation);
        operations.insert(operations.end(), state_->waiting.begin(), state_->waiting.end());
    }
    for (const auto& operation : operations)
        operation->cancel();
}

void OperationQueue::waitUntilAllAreFinished()
{
    std::unique_lock lock(state_->mutex);
    const auto isOwn
        = [](const std::thread& thread) { return thread.get_id() == std::this_thread::get_id(); };
    if (std::any_of(threads_.begin(), threads_.end(), isOwn))
        qFatal("OperationQueue: an operation waits for its own queue, which would never return");
    state_->changed.wait(lock, [this] { return state_->isIdle(); });
}

int OperationQueue::width() const
{
    const std::lock_guard lock(state_->mutex);
    return state_->width;
}

void OperationQueue::setWidth(int width)
{
    {
        const std::lock_guard lock(state_->mutex);
        state_->width = std::max(width, 1);
        startThreads();
    }
    state_->changed.notify_all();
}

bool OperationQueue::isSuspended() const
{
    const std::lock_guard lock(state_->mutex);
    return state_->isSuspended;
}

void OperationQueue::setSuspended(bool suspended)
{
    {
        const std::lock_guard lock(state_->mutex);
        state_->isSuspended = suspended;
    }
    state_->changed.notify_all();
}

int OperationQueue::operationCount() const
{
    const std::lock_guard lock(state_->mutex);
    return static_cast<int>(state_->waiting.size() + state_->running.size());
}

} // namespace quor::platform
