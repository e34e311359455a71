// SPDX-License-Identifier: MIT
#include "Platform/Concurrency/OperationQueue.h"
#include "Support/WaitFor.h"
#include "ToolKit/Deferred/AsyncOperation.h"
#include "ToolKit/Deferred/DelayedAction.h"
#include "ToolKit/Deferred/EventProtocol.h"

#include <gtest/gtest.h>

#include <atomic>
#include <limits>
#include <memory>
#include <string>
#include <thread>

using namespace quor::toolkit;
using quor::test::waitFor;

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

enum class FormEvent { changed, closed };

class Form final : public EventProtocol<Form, FormEvent> { };

struct Target {
    Target(std::string& calls, char name)
        : calls_(&calls)
        , name_(name)
    {
    }
    void changed(Form& /*sender*/, const std::any& payload)
    {
        *calls_ += name_;
        if (const auto* number = std::any_cast<int>(&payload))
            *calls_ += std::to_string(*number);
    }

private:
    std::string* calls_;
    char name_;
};
template <class Base>
struct TargetOf : Base, Target {
    using Target::Target;
};
struct SharedTarget : std::enable_shared_from_this<SharedTarget>, Target {
    using Target::Target;
};
using TrackedTarget = TargetOf<quor::platform::Trackable>;

template <class T>
class EventTargets : public testing::Test {
};
using Kinds = testing::Types<TargetOf<QObject>, SharedTarget, TrackedTarget>;
TYPED_TEST_SUITE(EventTargets, Kinds);

TYPED_TEST(EventTargets, AreCalledAndRemovedAndMayEndFirst)
{
    std::string calls;
    Form form;
    auto first = std::make_shared<TypeParam>(calls, 'a');
    auto second = std::make_shared<TypeParam>(calls, 'b');
    form.add(*first, &Target::changed, Form::Event::changed);
    form.add(*second, &TypeParam::changed, Form::Event::changed);
    form.add(*first, &Target::changed, Form::Event::changed);
    form.add(*first, &Target::changed, Form::Event::closed);
    form.trigger(Form::Event::changed, 7);
    EXPECT_EQ(calls, "a7b7a7");

    form.remove(*first, Form::Event::changed);
    form.remove(*first);
    EXPECT_EQ(form.numberOfTargets(Form::Event::closed), 0U);
    second.reset();
    EXPECT_EQ(form.numberOfTargets(Form::Event::changed), 1U) << "counted until the next trigger";
    form.trigger(Form::Event::changed);
    EXPECT_EQ(form.numberOfTargets(Form::Event::changed), 0U);
    EXPECT_EQ(calls, "a7b7a7");
}

TEST(EventProtocol, DelayedCallsComeOnceAndOnlyBetweenTheLiving)
{
    std::string calls;
    Form form;
    auto ended = std::make_unique<Form>();
    TrackedTarget target(calls, 't');
    auto gone = std::make_unique<TrackedTarget>(calls, 'g');
    form.add(*gone, &Target::changed, Form::Event::changed, 0.001);
    form.add(target, &Target::changed, Form::Event::changed, 0.01);
    form.add(target, &Target::changed, Form::Event::closed, 0.02);
    ended->add(target, &Target::changed, Form::Event::changed, 0.001);
    for (const int payload : {1, 2, 3}) {
        form.trigger(Form::Event::changed, payload);
        ended->trigger(Form::Event::changed, payload);
    }
    form.trigger(Form::Event::closed);
    gone.reset();
    ended.reset();
    EXPECT_TRUE(waitFor([&] { return calls.ends_with("t"); }));
    EXPECT_EQ(calls, "t3t");
}

TEST(EventProtocol, APassIsNotDisturbedByItsTargets)
{
    std::string calls;
    auto form = std::make_unique<Form>();
    TrackedTarget remover(calls, 'r');
    auto victim = std::make_unique<TrackedTarget>(calls, 'v');
    TrackedTarget last(calls, 'l');
    const auto removing = [&](TrackedTarget& self, Form& sender, const std::any&) {
        sender.remove(self);
        victim.reset();
        sender.add(self, &Target::changed, Form::Event::changed);
    };
    form->add(remover, removing, Form::Event::changed);
    form->add(*victim, &Target::changed, Form::Event::changed);
    form->add(last, &Target::changed, Form::Event::changed);
    form->trigger(Form::Event::changed);
    EXPECT_EQ(calls, "l") << "no target that ended, and none that was added during the calls";

    const auto ending = [&](TrackedTarget&, Form&, const std::any&) { form.reset(); };
    form->add(last, ending, Form::Event::closed);
    form->add(last, &Target::changed, Form::Event::closed);
    form->trigger(Form::Event::closed);
    EXPECT_EQ(calls, "l") << "the calls stop when the publisher ends";
}

TEST(EventProtocol, ATriggerFromAnotherThreadHopsIfThePublisherLives)
{
    std::string calls;
    TrackedTarget target(calls, 't');
    Form form;
    auto ended = std::make_unique<Form>();
    form.add(target, &Target::changed, Form::Event::changed);
    ended->add(target, &Target::changed, Form::Event::changed);
    std::thread([&] {
        ended->trigger(Form::Event::changed, 1);
        form.trigger(Form::Event::changed, 2);
    }).join();
    EXPECT_EQ(calls, "") << "it comes on the main thread";
    ended.reset();
    EXPECT_TRUE(waitFor([&] { return !calls.empty(); }));
    EXPECT_EQ(calls, "t2");
}

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
