// SPDX-License-Identifier: MIT
#pragma once

#include <cmark-gfm.h>

#include <array>
#include <chrono>
#include <csetjmp>
#include <cstddef>
#include <cstdlib>
#include <memory>
#include <vector>

namespace quor::markdown {

/// The memory of one parse, given back all at once. It also bounds what hostile text can make the parser ask
/// for, and how long: the parser cannot be told to stop, so beyond the limits it is left by a jump as it asks
/// for more, which is safe since all it has lies in here. While one lives, the allocator of this thread draws
/// on it; there is one a thread at most.
class CmarkArena {
public:
    /// `time` is what the processor spends on this thread, so that a busy machine makes no difference.
    CmarkArena(std::size_t limit, std::chrono::nanoseconds time);
    CmarkArena(const CmarkArena&) = delete;
    CmarkArena& operator=(const CmarkArena&) = delete;
    CmarkArena(CmarkArena&&) = delete;
    CmarkArena& operator=(CmarkArena&&) = delete;
    ~CmarkArena();

    /// For the parser's functions that take an allocator.
    static cmark_mem* allocator();

    /// Where to go on when a limit is passed; null to let the limits be.
    void setEscape(std::jmp_buf* escape) { escape_ = escape; }

    /// As `calloc`, `realloc` and `free`, but that large blocks are used again only if they were the latest.
    /// They never give null: without memory they take the escape, or abort.
    void* allocate(std::size_t size);
    void* reallocate(void* block, std::size_t size);
    void release(void* block);

private:
    struct Free {
        void operator()(void* chunk) const { std::free(chunk); }
    };

    void addChunk(std::size_t size);
    void count(std::size_t size);
    [[nodiscard]] bool isLate();
    [[noreturn]] void giveUp();

    std::vector<std::unique_ptr<void, Free>> chunks_;
    std::byte* next_ = nullptr;
    std::byte* end_ = nullptr;
    std::byte* latest_ = nullptr; // the block before next_
    std::array<void*, 64> released_{}; // by size, each a list through the blocks themselves
    std::size_t used_ = 0; // all that was ever asked for, what was given back too
    std::size_t limit_;
    unsigned requests_ = 0;
    std::chrono::nanoseconds deadline_; // by the clock of the thread
    std::jmp_buf* escape_ = nullptr;
};

} // namespace quor::markdown
