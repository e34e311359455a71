// SPDX-License-Identifier: MIT
#include "Platform/Concurrency/DispatchQueue.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <future>
#include <vector>

using quor::platform::DispatchQueue;

namespace {

TEST(DispatchQueue, RunsBlocksInOrderToTheLast)
{
    std::vector<int> order;
    {
        DispatchQueue queue;
        for (int i = 0; i < 100; ++i)
            queue.async([&order, i] { order.push_back(i); });
        EXPECT_EQ(queue.sync([&] { return order.back(); }), 99);
        queue.async([&order] { order.push_back(100); });
    }
    EXPECT_EQ(order.size(), 101);
    EXPECT_TRUE(std::is_sorted(order.begin(), order.end()));
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
    auto owner = std::make_shared<DispatchQueue>();
    std::promise<void> mayEnd;
    std::promise<void> ranBehind;
    auto* const queue = owner.get();
    queue->async([owner, mayEnd = mayEnd.get_future().share()] { mayEnd.wait(); });
    queue->async([&] { ranBehind.set_value(); });
    owner.reset(); // the first block holds the last reference now
    mayEnd.set_value();
    ranBehind.get_future().wait();
}

TEST(DispatchQueueDeathTest, SyncFromWithinItselfIsFatal)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_DEATH(
        {
            DispatchQueue queue("lists");
            queue.sync([&] { queue.sync([] {}); });
        },
        "lists: sync from within");
}

} // namespace
