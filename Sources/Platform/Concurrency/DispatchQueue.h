// SPDX-License-Identifier: MIT
#pragma once

#include <QByteArray>

#include <functional>
#include <memory>
#include <optional>
#include <thread>
#include <type_traits>
#include <utility>

namespace quor::platform {

/// A private queue: blocks run one at a time, in the order of submission.
///
///     value_ = queue_.sync([&] { return count_; }); // every access to count_ goes through queue_
///
/// Since no two blocks overlap, a queue guards what only its blocks touch. `async` blocks run on one
/// worker thread, started by the first of them; `sync` blocks run on the calling thread, so a queue
/// that is only used for `sync` has no thread at all. A block must not throw.
///
/// All operations may be called on any thread.
class DispatchQueue final {
public:
    /// `label` names the queue in error messages and its thread in debuggers.
    explicit DispatchQueue(QByteArray label = QByteArrayLiteral("DispatchQueue"));

    /// Returns when every block submitted has run. From within one of the queue's own blocks it
    /// returns at once instead, and the blocks behind that one still run.
    ~DispatchQueue();
    DispatchQueue(const DispatchQueue&) = delete;
    DispatchQueue& operator=(const DispatchQueue&) = delete;

    /// Runs `block` later, behind all that was submitted before.
    void async(std::function<void()> block);

    /// Runs `block` behind all that was submitted before, and returns what it returned. From within
    /// one of the queue's own blocks this could never return: a fatal error.
    template <typename Block>
    std::invoke_result_t<Block&> sync(Block&& block);

private:
    struct State;

    void runInTurn(std::function<void()> block) noexcept;

    std::shared_ptr<State> state_;
    std::thread worker_; ///< guarded by the state's mutex
};

template <typename Block>
std::invoke_result_t<Block&> DispatchQueue::sync(Block&& block)
{
    if constexpr (std::is_void_v<std::invoke_result_t<Block&>>) {
        runInTurn(std::ref(block));
    } else {
        std::optional<std::invoke_result_t<Block&>> result;
        runInTurn([&] { result.emplace(block()); });
        return *std::move(result);
    }
}

} // namespace quor::platform
