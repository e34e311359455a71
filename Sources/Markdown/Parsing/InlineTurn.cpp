// SPDX-License-Identifier: MIT
#include "Markdown/Parsing/InlineTurn.h"

#include <QtGlobal>

#include <condition_variable>
#include <mutex>
#include <utility>

namespace quor::markdown {

namespace {

/// Serves those who wait in the order of their arrival, which a mutex does not.
class Queue {
public:
    void enter()
    {
        std::unique_lock lock(mutex_);
        const quint64 mine = next_++;
        moved_.wait(lock, [&] { return served_ == mine; });
    }

    void leave()
    {
        {
            const std::lock_guard lock(mutex_);
            ++served_;
        }
        moved_.notify_all();
    }

    /// Whether someone waits behind the one that is served.
    [[nodiscard]] bool hasWaiters()
    {
        const std::lock_guard lock(mutex_);
        return next_ > served_ + 1;
    }

private:
    std::mutex mutex_;
    std::condition_variable moved_;
    quint64 next_ = 0; // the number that the next one gets
    quint64 served_ = 0;
};

Queue& queue()
{
    static Queue instance;
    return instance;
}

} // namespace

void InlineTurn::begin(cmark_parser* parser)
{
    queue().enter();
    parser_ = parser;
}

void InlineTurn::end()
{
    if (!parser_)
        return;
    // A parser that was left by a jump has not removed its characters.
    cmark_manage_extensions_special_characters(std::exchange(parser_, nullptr), false);
    queue().leave();
}

void InlineTurn::offer()
{
    if (!parser_ || !queue().hasWaiters())
        return;
    queue().leave();
    queue().enter();
    // The parsers that went first have removed their characters, which are the same.
    cmark_manage_extensions_special_characters(parser_, true);
}

} // namespace quor::markdown
