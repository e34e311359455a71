// SPDX-License-Identifier: MIT
#include "Platform/Concurrency/MainQueue.h"
#include "Support/WaitFor.h"

#include <QCoreApplication>
#include <QThread>

#include <gtest/gtest.h>

#include <string>

using namespace std::chrono_literals;
using quor::platform::MainQueue;
using quor::platform::WorkItem;
using quor::test::waitFor;

namespace {

TEST(MainQueue, RunsInOrderOfDueTimeThenSubmission)
{
    std::string order;
    const auto late = MainQueue::after(20ms, [&] { order += 'c'; });
    const auto first = MainQueue::after(0ms, [&] { order += 'a'; });
    const auto second = MainQueue::after(-5ms, [&] { order += 'b'; });
    EXPECT_EQ(order, "") << "nothing runs before the event loop turns";
    EXPECT_TRUE(waitFor([&] { return order == "abc"; })) << order;
    EXPECT_FALSE(late.isPending());
}

TEST(MainQueue, CancelDropsTheClosureAndWhatItHolds)
{
    const auto held = std::make_shared<std::string>();
    for (const auto delay : {0ms, std::chrono::milliseconds(40 * 24h)}) {
        WorkItem item = MainQueue::after(delay, [held] { *held += "cancelled"; });
        EXPECT_TRUE(item.isPending());
        item.cancel();
        item.cancel();
        EXPECT_FALSE(item.isPending());
    }
    WorkItem self;
    self = MainQueue::after(0ms, [held, &self] {
        self.cancel(); // within itself
        *held += "a";
    });
    (void)MainQueue::after(1ms, [held] { *held += "b"; }); // outlives its handle
    EXPECT_TRUE(waitFor([&] { return *held == "ab"; })) << *held;
    EXPECT_EQ(held.use_count(), 1) << "what has run is let go";
}

TEST(MainQueue, AsyncHopsFromAnyThread)
{
    QThread* ranOn = nullptr;
    MainQueue::async(nullptr);
    const std::unique_ptr<QThread> worker(
        QThread::create([&] { MainQueue::async([&] { ranOn = QThread::currentThread(); }); }));
    worker->start();
    EXPECT_TRUE(waitFor([&] { return ranOn != nullptr; }));
    EXPECT_EQ(ranOn, QCoreApplication::instance()->thread());
    worker->wait();
}

} // namespace
