// SPDX-License-Identifier: MIT
#include "Platform/Concurrency/DispatchQueue.h"

#include <QtGlobal>

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>

#include <pthread.h>

namespace quor::platform {

// Every block draws a ticket when it is submitted and runs when its number is up, whichever thread
// runs it. Shared with whoever runs a block, who may outlive a queue that ends within that block.
struct DispatchQueue::State {
    using Ticket = std::uint64_t;
    struct Waiting {
        Ticket ticket;
        std::function<void()> block;
    };

    explicit State(QByteArray name)
        : label(std::move(name))
    {
    }

    void run(std::unique_lock<std::mutex>& lock, std::function<void()> block)
    {
        occupant = std::this_thread::get_id();
        lock.unlock();
        if (block)
            block();
        block = nullptr; // what it holds is let go of in its turn as well
        lock.lock();
        occupant = {};
        ++serving;
    }

    void work()
    {
        // The kernel keeps 15 characters of a thread's name.
        pthread_setname_np(pthread_self(), label.left(15).constData());
        std::unique_lock lock(mutex);
        while (true) {
            changed.wait(
                lock, [this] { return waiting.empty() ? isEnding : waiting.front().ticket == serving; });
            if (waiting.empty())
                return;
            auto block = std::move(waiting.front().block);
            waiting.pop_front();
            run(lock, std::move(block));
            // Nobody is woken to see that it is not their turn.
            if (waiting.empty() || waiting.front().ticket != serving)
                changed.notify_all();
        }
    }

    const QByteArray label;
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Waiting> waiting; // for the worker; a thread within sync waits by itself
    std::thread::id occupant;
    Ticket issued = 0;
    Ticket serving = 0;
    bool isEnding = false;
};

DispatchQueue::DispatchQueue(QByteArray label)
    : state_(std::make_shared<State>(std::move(label)))
{
}

DispatchQueue::~DispatchQueue()
{
    bool isWithinBlock = false;
    {
        const std::lock_guard lock(state_->mutex);
        state_->isEnding = true;
        isWithinBlock = state_->occupant == std::this_thread::get_id();
    }
    state_->changed.notify_all();
    if (!worker_.joinable())
        return;
    if (isWithinBlock)
        worker_.detach();
    else
        worker_.join();
}

void DispatchQueue::async(std::function<void()> block)
{
    const auto state = state_; // the block may end this queue, even before this call returns
    {
        const std::lock_guard lock(state->mutex);
        state->waiting.push_back({state->issued++, std::move(block)});
        if (!worker_.joinable())
            worker_ = std::thread([state] { state->work(); });
    }
    state->changed.notify_all();
}

void DispatchQueue::runInTurn(std::function<void()> block) noexcept
{
    const auto state = state_; // the block may end this queue
    std::unique_lock lock(state->mutex);
    if (state->occupant == std::this_thread::get_id())
        qFatal("%s: sync from within the queue's own block would never return", state->label.constData());
    const auto ticket = state->issued++;
    state->changed.wait(lock, [&state, ticket] { return state->serving == ticket; });
    state->run(lock, std::move(block));
    state->changed.notify_all();
}

} // namespace quor::platform
