// SPDX-License-Identifier: MIT
#include "ToolKit/Deferred/AsyncOperation.h"
#include "Platform/Concurrency/OperationQueue.h"
#include "Support/WaitFor.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>

using quor::platform::OperationQueue;
using quor::test::waitFor;
using quor::toolkit::AsyncOperation;

namespace {

class Download final : public AsyncOperation {
public:
    void complete() { finish(); }
    [[nodiscard]] bool isUnderWay() const { return isUnderWay_; }

private:
    void work() override { isUnderWay_ = true; }

    std::atomic<bool> isUnderWay_ = false;
};

TEST(AsyncOperation, KeepsItsSlotUntilItFinishes)
{
    const auto first = std::make_shared<Download>();
    const auto second = std::make_shared<Download>();
    std::string inHandler;
    first->setFinishHandler([&, download = first.get()] {
        inHandler += download->isExecuting() && !download->isFinished() ? "executing" : "over";
    });
    OperationQueue queue(1);
    queue.add(first);
    queue.add(second);
    EXPECT_TRUE(waitFor([&] { return first->isUnderWay(); }));
    EXPECT_TRUE(first->isExecuting() && !first->isFinished());
    EXPECT_FALSE(second->isUnderWay());

    std::thread([&] { first->complete(); }).join();
    EXPECT_TRUE(waitFor([&] { return second->isUnderWay(); }));
    EXPECT_TRUE(first->isFinished() && !first->isExecuting());
    first->complete();
    EXPECT_EQ(inHandler, "executing") << "called once, before the states change";

    const auto cancelled = std::make_shared<Download>();
    cancelled->setFinishHandler([&] { inHandler += ", cancelled"; });
    cancelled->cancel();
    queue.add(cancelled);
    second->complete();
    queue.waitUntilAllAreFinished();
    EXPECT_EQ(inHandler, "executing, cancelled");
    EXPECT_TRUE(cancelled->isFinished() && !cancelled->isUnderWay());
}

TEST(AsyncOperation, CancelledAsItStartsItStillFinishes)
{
    Download operation;
    std::string announced;
    const auto executing = operation.observe(AsyncOperation::Key::isExecuting, [&] {
        announced += operation.isExecuting() ? 'e' : 'i';
        operation.cancel();
    });
    const auto finished = operation.observe(
        AsyncOperation::Key::isFinished, [&] { announced += operation.isFinished() ? 'f' : '?'; });
    operation.start();
    operation.start();
    EXPECT_EQ(announced, "eif");
    EXPECT_FALSE(operation.isUnderWay());
}

} // namespace
