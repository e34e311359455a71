// SPDX-License-Identifier: MIT
#include "Platform/Concurrency/DispatchQueue.h"

#include <gtest/gtest.h>

#include <future>
#include <string>

using quor::platform::DispatchQueue;

namespace {

TEST(DispatchQueue, RunsBlocksInOrderToTheLast)
{
    std::string order;
    {
        DispatchQueue queue;
        for (char letter = 'a'; letter < 'y'; ++letter)
            queue.async([&order, letter] { order += letter; });
        EXPECT_EQ(queue.sync([&] { return order.back(); }), 'x');
        queue.async(nullptr);
        queue.async([&order] { order += 'y'; });
    }
    EXPECT_EQ(order, "abcdefghijklmnopqrstuvwxy");
}

TEST(DispatchQueue, NeverRunsTwoBlocksAtATime)
{
    DispatchQueue queue;
    int count = 0; // guarded by the queue alone
    const auto work = [&] {
        for (int i = 0; i < 500; ++i) {
            queue.async([&] { ++count; });
            queue.sync([&] { ++count; });
        }
    };
    std::thread other(work);
    work();
    other.join();
    EXPECT_EQ(queue.sync([&] { return count; }), 2000);
}

TEST(DispatchQueue, MayEndWithinItsOwnBlock)
{
    for (const bool isSync : {false, true}) {
        auto queue = std::make_unique<DispatchQueue>();
        const auto ranBehind = std::make_shared<std::promise<void>>();
        const auto end = [&queue, ranBehind] {
            queue->async([ranBehind] { ranBehind->set_value(); });
            queue.reset();
        };
        isSync ? queue->sync(end) : queue->async(end);
        ranBehind->get_future().wait();
    }
}

} // namespace
