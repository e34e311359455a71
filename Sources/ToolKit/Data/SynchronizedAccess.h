// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Concurrency/DispatchQueue.h"

#include <functional>
#include <type_traits>
#include <utility>

namespace quor::toolkit {

/// A value that only blocks of code on a private queue can access, one at a time and in the order of the
/// calls.
///
///     SynchronizedAccess<std::vector<int>> numbers;
///     numbers.async([](auto& list) { list.push_back(1); });
///     const auto count = numbers.sync([](auto& list) { return list.size(); }); // 1
///
/// Any thread. The destructor waits until all blocks have run. Calling `sync` from within a block of the same
/// value is a fatal error, as it could never return.
template <typename Value>
class SynchronizedAccess final {
public:
    template <typename... Arguments>
    explicit SynchronizedAccess(Arguments&&... arguments)
        : value_(std::forward<Arguments>(arguments)...)
    {
    }

    /// Runs the block after the blocks of earlier calls, and returns its result.
    template <typename Block>
    std::invoke_result_t<Block&, Value&> sync(Block&& block)
    {
        return accessQueue_.sync([&]() -> decltype(auto) { return std::invoke(block, value_); });
    }

    /// Runs the block later. The value exists until then; the caller ensures the same for what it captures.
    template <typename Block>
    void async(Block&& block)
    {
        accessQueue_.async(
            [this, block = std::forward<Block>(block)]() mutable { std::invoke(block, value_); });
    }

private:
    Value value_;
    /// Last, so that it ends before the value.
    platform::DispatchQueue accessQueue_{QByteArrayLiteral("SynchronizedAccess")};
};

} // namespace quor::toolkit
