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

/// A serial queue: runs blocks one at a time, in the order of submission.
///
///     value_ = queue_.sync([&] { return count_; }); // every access to count_ goes through queue_
///
/// Since no two blocks overlap, data that only the blocks of one queue use needs no other lock. `async`
/// blocks run on one worker thread, which the first of them starts. `sync` blocks run on the calling
/// thread, so a queue that is only used for `sync` has no thread. A block must not throw. An empty block
/// has no effect. Any thread.
class DispatchQueue final {
public:
    /// `label` is shown in error messages and, shortened to 15 bytes, as the name of the thread.
    explicit DispatchQueue(QByteArray label = QByteArrayLiteral("DispatchQueue"));

    /// Waits until all submitted blocks have run. If one of the queue's own blocks destroys the queue,
    /// the destructor returns at once, and the blocks that were submitted still run.
    ~DispatchQueue();
    DispatchQueue(const DispatchQueue&) = delete;
    DispatchQueue& operator=(const DispatchQueue&) = delete;

    /// Submits `block` and returns without waiting for it.
    void async(std::function<void()> block);

    /// Submits `block`, waits until it has run, and returns its result. Ends the process with an error
    /// message if called from one of the queue's own blocks, as the call would wait for itself.
    template <typename Block>
    std::invoke_result_t<Block&> sync(Block&& block);

private:
    struct State;

    void runInTurn(std::function<void()> block) noexcept;

    std::shared_ptr<State> state_;
    std::thread worker_; ///< Guarded by the state's mutex.
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
