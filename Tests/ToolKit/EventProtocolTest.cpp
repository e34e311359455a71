// SPDX-License-Identifier: MIT
#include "ToolKit/Deferred/EventProtocol.h"
#include "Support/WaitFor.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <thread>

using namespace quor::toolkit;
using quor::test::waitFor;

namespace {

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

} // namespace
