// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Concurrency/DispatchQueue.h"

#include <atomic>
#include <functional>
#include <thread>
#include <type_traits>
#include <utility>

namespace quor::toolkit {

/// The queue of a context: one block at a time, and a block may perform further ones, which run at once.
/// Any thread. A block must not throw.
class ContextQueue final {
public:
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

    void performLater(std::function<void()> block)
    {
        queue_.async([this, block = std::move(block)] {
            const Occupancy here(occupant_);
            if (block)
                block();
        });
    }

private:
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

    std::atomic<std::thread::id> occupant_; ///< a thread can read its own name here only if it wrote it
    platform::DispatchQueue queue_{QByteArrayLiteral("ManagedObjectContext")};
};

} // namespace quor::toolkit
