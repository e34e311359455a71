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
    auto held = std::make_shared<int>(1);
    bool ran = false;
    WorkItem item = MainQueue::after(1ms, [held, &ran] { ran = true; });
    item.cancel();
    item.cancel();
    EXPECT_EQ(held.use_count(), 1);
    EXPECT_FALSE(item.isPending());
    bool later = false;
    const auto marker = MainQueue::after(10ms, [&] { later = true; });
    EXPECT_TRUE(waitFor([&] { return later; }));
    EXPECT_FALSE(ran);
}

TEST(MainQueue, AClosureMayCancelItselfOrOutliveItsHandle)
{
    auto held = std::make_shared<int>(0);
    WorkItem self;
    self = MainQueue::after(0ms, [held, &self] {
        self.cancel();
        ++*held;
    });
    (void)MainQueue::after(0ms, [held] { ++*held; });
    EXPECT_TRUE(waitFor([&] { return *held == 2; }));
    EXPECT_EQ(held.use_count(), 1) << "what has run is let go";
}

TEST(MainQueue, AsyncHopsFromAnyThread)
{
    QThread* ranOn = nullptr;
    const std::unique_ptr<QThread> worker(
        QThread::create([&] { MainQueue::async([&] { ranOn = QThread::currentThread(); }); }));
    worker->start();
    EXPECT_TRUE(waitFor([&] { return ranOn != nullptr; }));
    EXPECT_EQ(ranOn, QCoreApplication::instance()->thread());
    worker->wait();
}

} // namespace
