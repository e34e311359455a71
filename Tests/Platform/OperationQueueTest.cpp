// SPDX-License-Identifier: MIT
#include "Platform/Concurrency/OperationQueue.h"

#include <gmock/gmock.h>

#include <atomic>
#include <future>
#include <latch>
#include <string>
#include <vector>

using quor::platform::Operation;
using quor::platform::OperationQueue;
using testing::ElementsAre;

namespace {

struct Work final : Operation {
    explicit Work(std::function<void()> what)
        : work(std::move(what))
    {
    }
    void main() override { work(); }
    std::function<void()> work;
};

/// Ends when the test ends it, not when `start()` returns.
class LateOperation final : public Operation {
public:
    void start() override
    {
        if (isCancelled())
            finish();
        else
            started.set_value();
    }
    void finish()
    {
        isFinished_ = true;
        didChangeValueForKey(Key::isFinished);
    }
    [[nodiscard]] bool isAsynchronous() const override { return true; }
    [[nodiscard]] bool isFinished() const override { return isFinished_; }
    std::promise<void> started;

private:
    std::atomic<bool> isFinished_ = false;
};

TEST(Operation, AnnouncesItsStates)
{
    std::vector<std::string> heard;
    Work operation([&] { heard.emplace_back("main"); });
    const auto executing = operation.observe(Operation::Key::isExecuting,
        [&] { heard.emplace_back(operation.isExecuting() ? "begins" : "ends"); });
    const auto finished
        = operation.observe(Operation::Key::isFinished, [&] { heard.emplace_back("finished"); });
    operation.start();
    operation.start();
    EXPECT_THAT(heard, ElementsAre("begins", "main", "ends", "finished"));
}

TEST(OperationQueue, RunsAsManyAsItIsWide)
{
    constexpr int width = 3;
    OperationQueue queue(width);
    std::latch together(width); // opens only when three run at the same time
    std::atomic<int> running = 0;
    for (int i = 0; i < 30; ++i) {
        queue.add([&, i] {
            EXPECT_LE(++running, width);
            if (i < width)
                together.arrive_and_wait();
            --running;
        });
    }
    queue.waitUntilAllAreFinished();
}

TEST(OperationQueue, CancelledOperationsFinishWithoutRunningAndTheOthersRunInOrder)
{
    OperationQueue queue(1);
    queue.setSuspended(true);
    std::string order;
    const auto cancelled = std::make_shared<Work>([&] { order += "cancelled"; });
    queue.add(cancelled);
    queue.cancelAll();
    for (const char letter : {'a', 'b', 'c'})
        queue.add([&, letter] { order += letter; });
    queue.setSuspended(false);
    queue.waitUntilAllAreFinished();
    EXPECT_TRUE(cancelled->isFinished());
    EXPECT_EQ(order, "abc");
}

TEST(OperationQueue, EndsWithoutRunningWhatStillWaits)
{
    const auto late = std::make_shared<LateOperation>();
    const auto waiting = std::make_shared<Work>([] { ADD_FAILURE(); });
    auto queue = std::make_unique<OperationQueue>(1);
    queue->add(late);
    queue->add(waiting);
    late->started.get_future().wait();
    queue.reset();
    EXPECT_TRUE(waiting->isFinished() && !late->isFinished());
    late->finish(); // no observer is left
}

TEST(OperationQueue, MayEndWithinItsOwnOperation)
{
    auto queue = std::make_unique<OperationQueue>(1);
    std::latch isFilled(1);
    std::latch isOver(1);
    const auto behind = std::make_shared<Work>([] { ADD_FAILURE(); });
    const auto end = behind->observe(Operation::Key::isFinished, [&] { isOver.count_down(); });
    queue->add([&] {
        isFilled.wait();
        queue.reset();
    });
    queue->add(behind);
    isFilled.count_down();
    isOver.wait();
}

} // namespace
