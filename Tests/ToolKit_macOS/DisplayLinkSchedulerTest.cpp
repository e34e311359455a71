// SPDX-License-Identifier: MIT
#include "ToolKit_macOS/DisplayLinkScheduler.h"
#include "Platform/Concurrency/DisplayLink.h"
#include "Support/WaitFor.h"

#include <QGuiApplication>
#include <QScreen>
#include <QWidget>

#include <gmock/gmock.h>

#include <atomic>
#include <chrono>

#include <pthread.h>

using namespace quor::toolkit;
using quor::platform::DisplayLink;
using quor::test::waitFor;

namespace {

// Blocks the main thread while this many frames pass, at the rate of the screen.
void passFrames(int count)
{
    std::atomic<int> left = count;
    DisplayLink link(*QGuiApplication::primaryScreen());
    link.setOutputCallback([&] {
        if (--left == 0)
            left.notify_one();
    });
    link.start();
    for (int now = left; now > 0; now = left)
        left.wait(now);
}

} // namespace

TEST(DisplayLinkTest, KeepsTheScreensPaceAndCallsNobodyOnceStopped)
{
    const auto start = std::chrono::steady_clock::now();
    passFrames(30);
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    EXPECT_GE(took.count(), 29 / QGuiApplication::primaryScreen()->refreshRate());

    int calls = 0; // without a lock: after stop it is the main thread's again
    DisplayLink link(*QGuiApplication::primaryScreen());
    link.setOutputCallback([&] { ++calls; });
    for (int time = 0; time < 20; ++time) {
        link.start();
        link.stop();
        calls = 0;
    }
    passFrames(3);
    EXPECT_EQ(calls, 0);
}

TEST(DisplayLinkSchedulerTest, CallsTheHandlerForEachFrameWhileItRunsAndMayEndWithinIt)
{
    auto scheduler = std::make_unique<DisplayLinkScheduler>(std::make_shared<QWidget>());
    scheduler->setRunning(false);
    EXPECT_FALSE(scheduler->isRunning());
    int frames = 0;
    scheduler->updateHandler = [&] { ++frames; };
    scheduler->setRunning(true);
    passFrames(10);
    scheduler->setRunning(false);
    QCoreApplication::processEvents();
    EXPECT_GE(frames, 3) << "frames that pass while the main thread is busy are not skipped";
    const int then = frames;
    passFrames(3);
    QCoreApplication::processEvents();
    EXPECT_EQ(frames, then);
    scheduler->updateHandler = [&] { scheduler.reset(); };
    scheduler->setRunning(true);
    passFrames(5);
    EXPECT_TRUE(waitFor([&] { return !scheduler; }));
}

TEST(DisplayLinkSchedulerTest, StaysOffWithoutAThreadAndCanBeSwitchedOnLater)
{
    pthread_attr_t usual;
    ASSERT_EQ(pthread_getattr_default_np(&usual), 0);
    pthread_attr_t huge = usual;
    ASSERT_EQ(pthread_attr_setstacksize(&huge, std::size_t(1) << 50), 0); // more than can be mapped
    DisplayLinkScheduler scheduler(std::make_shared<QWidget>());
    int frames = 0;
    scheduler.updateHandler = [&] { ++frames; };
    ASSERT_EQ(pthread_setattr_default_np(&huge), 0);
    scheduler.setRunning(true);
    ASSERT_EQ(pthread_setattr_default_np(&usual), 0);
    EXPECT_FALSE(scheduler.isRunning());
    scheduler.setRunning(true);
    EXPECT_TRUE(waitFor([&] { return frames > 0; }));
}
