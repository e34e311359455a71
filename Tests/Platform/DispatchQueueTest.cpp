// SPDX-License-Identifier: MIT
#include "Platform/Concurrency/DispatchQueue.h"

#include <gtest/gtest.h>

#include <future>
#include <numeric>
#include <vector>

using quor::platform::DispatchQueue;

namespace {

TEST(DispatchQueue, RunsBlocksInOrderOfSubmission)
{
    DispatchQueue queue;
    std::vector<int> order;
    for (int i = 0; i < 1000; ++i)
        queue.async([&order, i] { order.push_back(i); });
    std::vector<int> expected(1000);
    std::iota(expected.begin(), expected.end(), 0);
    EXPECT_EQ(queue.sync([&] { return order; }), expected);
}

TEST(DispatchQueue, NeverRunsTwoBlocksAtATime)
{
    DispatchQueue queue;
    int count = 0; // guarded by the queue alone
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&] {
            for (int i = 0; i < 500; ++i) {
                queue.async([&] { ++count; });
                queue.sync([&] { ++count; });
            }
        });
    }
    for (auto& thread : threads)
        thread.join();
    EXPECT_EQ(queue.sync([&] { return count; }), 4000);
}

TEST(DispatchQueue, SyncRunsOnTheCallingThreadAndAsyncOnAnother)
{
    DispatchQueue queue;
    std::thread::id worker;
    queue.async([&] { worker = std::this_thread::get_id(); });
    EXPECT_EQ(queue.sync([] { return std::this_thread::get_id(); }), std::this_thread::get_id());
    EXPECT_NE(worker, std::thread::id());
    EXPECT_NE(worker, std::this_thread::get_id());
}

TEST(DispatchQueue, EndsOnlyAfterWhatWasSubmitted)
{
    int ran = 0;
    {
        DispatchQueue queue;
        for (int i = 0; i < 100; ++i)
            queue.async([&] { ++ran; });
    }
    EXPECT_EQ(ran, 100);
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
