// SPDX-License-Identifier: MIT
#include "ToolKit/Deferred/AsyncOperation.h"
#include "Platform/Concurrency/OperationQueue.h"
#include "Support/WaitFor.h"

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <thread>

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
    const auto cancelled = std::make_shared<Download>();
    std::string inHandler;
    first->setFinishHandler([&, download = first.get()] {
        inHandler += download->isExecuting() && !download->isFinished() ? "executing" : "over";
    });
    cancelled->setFinishHandler([&] { inHandler += ", cancelled"; });
    cancelled->cancel();
    quor::platform::OperationQueue queue(1);
    for (const auto& operation : {first, second, cancelled})
        queue.add(operation);
    EXPECT_TRUE(waitFor([&] { return first->isUnderWay(); }));
    EXPECT_TRUE(first->isExecuting() && !first->isFinished() && !second->isUnderWay());

    std::thread([&] { first->complete(); }).join();
    EXPECT_TRUE(waitFor([&] { return second->isUnderWay(); }));
    EXPECT_TRUE(first->isFinished() && !first->isExecuting());
    first->complete();
    second->complete();
    queue.waitUntilAllAreFinished();
    EXPECT_EQ(inHandler, "executing, cancelled") << "each once, before the states change";
    EXPECT_TRUE(cancelled->isFinished() && !cancelled->isUnderWay());
}

TEST(AsyncOperation, CancelledAsItStartsItFinishesThoughItsHandlerLetsGoOfIt)
{
    auto operation = std::make_shared<Download>();
    const std::weak_ptr<Download> alive = operation;
    std::string announced;
    const auto executing = operation->observe(AsyncOperation::Key::isExecuting, [&] {
        announced += alive.lock()->isExecuting() ? 'e' : 'i';
        alive.lock()->cancel();
    });
    const auto finished = operation->observe(
        AsyncOperation::Key::isFinished, [&] { announced += alive.lock()->isFinished() ? 'f' : '?'; });
    operation->setFinishHandler([&] { operation.reset(); });
    operation->start();
    EXPECT_EQ(announced, "eif");
    EXPECT_TRUE(alive.expired());
}

} // namespace
