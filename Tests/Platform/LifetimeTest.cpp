// SPDX-License-Identifier: MIT
#include "Platform/Lifetime/Callback.h"
#include "Platform/Lifetime/WhileAlive.h"

#include <QObject>

#include <gtest/gtest.h>

#include <memory>

namespace quor::platform {
namespace {

TEST(CallbackTest, AnEmptyOneReturnsTheDefaultAndANullFunctionIsEmpty)
{
    const Callback<int(int)> none;
    const Callback<int(int)> null = std::function<int(int)>();
    EXPECT_FALSE(none);
    EXPECT_FALSE(null);
    EXPECT_EQ(none(7), 0);
}

TEST(CallbackTest, TheClosureOutlivesTheObjectThatHeldIt)
{
    struct Holder {
        Callback<void(std::unique_ptr<int>)> done;
    };
    auto holder = std::make_unique<Holder>();
    int seen = 0;
    holder->done = [&, kept = std::make_shared<int>(40)](std::unique_ptr<int> more) {
        holder.reset();
        seen = *kept + *more;
    };
    holder->done(std::make_unique<int>(2));
    EXPECT_EQ(seen, 42);
}

struct Object final : QObject { };
struct Token final : Trackable { };
struct Shared final : std::enable_shared_from_this<Shared> { };

template <class Owner>
void expectCallsUntilTheEndOf(std::shared_ptr<Owner> owner)
{
    int calls = 0;
    const Callback<int(int)> twice = whileAlive(*owner, [calls](int x) mutable { return ++calls * x; });
    EXPECT_EQ(twice(21), 21);
    EXPECT_EQ(twice(21), 42); // the closure keeps its state between calls
    owner.reset();
    EXPECT_EQ(twice(21), 0);
}

TEST(WhileAliveTest, CallsUntilTheOwnerEndsWhateverItsKind)
{
    expectCallsUntilTheEndOf(std::make_shared<Object>());
    expectCallsUntilTheEndOf(std::make_shared<Token>());
    expectCallsUntilTheEndOf(std::make_shared<Shared>());
}

} // namespace
} // namespace quor::platform
