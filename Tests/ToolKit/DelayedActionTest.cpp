// SPDX-License-Identifier: MIT
#include "ToolKit/Deferred/DelayedAction.h"
#include "Support/WaitFor.h"

#include <gtest/gtest.h>

#include <limits>
#include <memory>
#include <string>

using quor::test::waitFor;
using quor::toolkit::DelayedAction;

namespace {

TEST(DelayedAction, RunsTheLastOfABurstAfterItsDelay)
{
    std::string ran;
    QElapsedTimer sinceLast;
    DelayedAction action(0.05);
    DelayedAction between(0.03);
    action.run([&] { ran += 'a'; });
    between.run([&] {
        action.run([&] { ran += 'b'; });
        sinceLast.start();
        action.run([&] { ran += 'c'; });
    });
    EXPECT_TRUE(waitFor([&] { return !ran.empty(); }));
    EXPECT_GE(sinceLast.elapsed(), 50) << "the delay counts from the last call";
    action.cancel();
    action.run([&] { ran += 'd'; });
    EXPECT_TRUE(waitFor([&] { return ran == "cd"; })) << "cancelling what has run leaves it usable";
}

TEST(DelayedAction, AnyDelayAndAnyEndIsSafe)
{
    int runs = 0;
    auto restarted = std::make_unique<DelayedAction>(-1);
    std::function<void()> again = [&] { ++runs == 3 ? restarted.reset() : restarted->run(again); };
    restarted->run(again);
    bool outlived = false;
    DelayedAction endless(std::numeric_limits<double>::infinity());
    endless.run([] { FAIL() << "it was cancelled"; });
    DelayedAction(std::numeric_limits<double>::quiet_NaN()).run([&] { outlived = true; });
    EXPECT_TRUE(waitFor([&] { return !restarted && outlived; }));
    EXPECT_EQ(runs, 3);
    endless.cancel();
}

} // namespace
