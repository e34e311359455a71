// SPDX-License-Identifier: MIT
#include "Platform/Concurrency/DispatchQueue.h"

#include <QtGlobal>

#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>

#include <pthread.h>

namespace quor::platform {

// Every block gets a ticket when it is submitted. It runs when its ticket is being served, on the worker or
// on the thread that called sync. The threads share the state, as a block can destroy the queue.
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
        block = nullptr; // destroys what the block captured before the next block runs
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
            // The other threads need not wake up if the next block is this worker's again.
            if (waiting.empty() || waiting.front().ticket != serving)
                changed.notify_all();
        }
    }

    const QByteArray label;
    std::mutex mutex;
    std::condition_variable changed;
    std::deque<Waiting> waiting; // the async blocks
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
    const auto state = state_; // the block may destroy this queue, even before this call returns
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
    const auto state = state_; // the block may destroy this queue
    std::unique_lock lock(state->mutex);
    if (state->occupant == std::this_thread::get_id())
        qFatal("%s: a block of this queue called sync on the queue, which would never return",
            state->label.constData());
    const auto ticket = state->issued++;
    state->changed.wait(lock, [&state, ticket] { return state->serving == ticket; });
    state->run(lock, std::move(block));
    state->changed.notify_all();
}

} // namespace quor::platform
