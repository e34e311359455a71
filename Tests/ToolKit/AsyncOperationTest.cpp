// SPDX-License-Identifier: MIT
#include "ToolKit/Deferred/AsyncOperation.h"
#include "Platform/Concurrency/OperationQueue.h"
#include "Support/WaitFor.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

using quor::platform::OperationQueue;
using quor::test::waitFor;
using quor::toolkit::AsyncOperation;

namespace {

class Download final : public AsyncOperation {
public:
    ~Download() override
    {
        if (worker_.joinable())
            worker_.join();
    }
    void complete() { finish(); }
    void completeOnAnotherThread()
    {
        worker_ = std::thread([this] { finish(); });
    }
    [[nodiscard]] bool isUnderWay() const { return isUnderWay_; }

private:
    void work() override { isUnderWay_ = true; }

    std::atomic<bool> isUnderWay_ = false;
    std::thread worker_;
};

TEST(AsyncOperation, KeepsItsSlotUntilItFinishes)
{
    const auto first = std::make_shared<Download>();
    const auto second = std::make_shared<Download>();
    int handlerCalls = 0;
    bool finishedInHandler = true;
    first->setFinishHandler([&] {
        ++handlerCalls;
        finishedInHandler = first->isFinished() || !first->isExecuting();
    });
    OperationQueue queue(1);
    queue.add(first);
    queue.add(second);
    EXPECT_TRUE(waitFor([&] { return first->isUnderWay(); }));
    EXPECT_TRUE(first->isExecuting() && !first->isFinished());
    EXPECT_FALSE(second->isUnderWay());

    first->completeOnAnotherThread();
    EXPECT_TRUE(waitFor([&] { return second->isUnderWay(); }));
    EXPECT_TRUE(first->isFinished() && !first->isExecuting());
    EXPECT_FALSE(finishedInHandler) << "the handler comes before the states change";
    first->complete();
    EXPECT_EQ(handlerCalls, 1);
    second->complete();
    queue.waitUntilAllAreFinished();
    first->setFinishHandler(nullptr);
}

TEST(AsyncOperation, CancelledBeforeItsStartItFinishesWithoutWork)
{
    const auto operation = std::make_shared<Download>();
    bool handled = false;
    operation->setFinishHandler([&] { handled = true; });
    operation->cancel();
    OperationQueue queue(1);
    queue.add(operation);
    queue.waitUntilAllAreFinished();
    EXPECT_TRUE(handled && operation->isFinished());
    EXPECT_FALSE(operation->isUnderWay() || operation->isExecuting());
}

TEST(AsyncOperation, CancelledAsItStartsItStillFinishes)
{
    const auto operation = std::make_shared<Download>();
    std::string announced;
    const auto executing = operation->observe(AsyncOperation::Key::isExecuting, [&] {
        announced += operation->isExecuting() ? 'e' : 'i';
        operation->cancel();
    });
    const auto finished = operation->observe(
        AsyncOperation::Key::isFinished, [&] { announced += operation->isFinished() ? 'f' : '?'; });
    operation->start();
    operation->start();
    EXPECT_EQ(announced, "eif");
    EXPECT_FALSE(operation->isUnderWay());
}

} // namespace
