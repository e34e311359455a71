// SPDX-License-Identifier: MIT
#pragma once

#include "Platform/Concurrency/DispatchQueue.h"

#include <functional>
#include <type_traits>
#include <utility>

namespace quor::toolkit {

/// A value that is touched by one block at a time, on a private queue, in the order of submission.
///
///     SynchronizedAccess<std::vector<int>> numbers;
///     numbers.async([](auto& list) { list.push_back(1); });
///     const auto count = numbers.sync([](auto& list) { return list.size(); }); // 1
///
/// Any thread. The destructor returns when all blocks have run. `sync` from within a block of the same
/// value could never return: a fatal error.
template <typename Value>
class SynchronizedAccess final {
public:
    template <typename... Arguments>
    explicit SynchronizedAccess(Arguments&&... arguments)
        : value_(std::forward<Arguments>(arguments)...)
    {
    }

    template <typename Block>
    std::invoke_result_t<Block&, Value&> sync(Block&& block)
    {
        return accessQueue_.sync([&]() -> decltype(auto) { return std::invoke(block, value_); });
    }

    /// The value stays alive until the block has run; what the block captures is its own affair.
    template <typename Block>
    void async(Block&& block)
    {
        accessQueue_.async(
            [this, block = std::forward<Block>(block)]() mutable { std::invoke(block, value_); });
    }

private:
    Value value_;
    platform::DispatchQueue accessQueue_{QByteArrayLiteral("SynchronizedAccess")}; ///< ends before the value
};

} // namespace quor::toolkit
