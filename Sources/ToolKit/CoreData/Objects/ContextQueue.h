// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Concurrency/DispatchQueue.h"

#include <atomic>
#include <functional>
#include <thread>
#include <type_traits>
#include <utility>

namespace quor::toolkit {

/// The queue of a context. It runs one block at a time, in order of submission. Any thread. A block must not
/// throw.
class ContextQueue final {
public:
    /// Waits for its turn, runs the block on the calling thread, and returns the block's result. Within a
    /// block of this queue it runs at once.
    template <class Block>
    std::invoke_result_t<Block&> perform(Block&& block)
    {
        if (occupant_.load(std::memory_order_relaxed) == std::this_thread::get_id())
            return block();
        return queue_.sync([&] {
            const Occupancy here(occupant_);
            return block();
        });
    }

    /// Runs the block later, on the thread of the queue.
    void performLater(std::function<void()> block)
    {
        queue_.async([this, block = std::move(block)] {
            const Occupancy here(occupant_);
            if (block)
                block();
        });
    }

private:
    /// Marks the current thread as the one that runs a block.
    class Occupancy {
    public:
        explicit Occupancy(std::atomic<std::thread::id>& occupant)
            : occupant_(occupant)
        {
            occupant_.store(std::this_thread::get_id(), std::memory_order_relaxed);
        }
        ~Occupancy() { occupant_.store({}, std::memory_order_relaxed); }
        Occupancy(const Occupancy&) = delete;
        Occupancy& operator=(const Occupancy&) = delete;

    private:
        std::atomic<std::thread::id>& occupant_;
    };

    /// The thread that runs a block; only that thread can find its own id here.
    std::atomic<std::thread::id> occupant_;
    platform::DispatchQueue queue_{QByteArrayLiteral("ManagedObjectContext")};
};

} // namespace quor::toolkit
