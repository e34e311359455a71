// SPDX-License-Identifier: MIT
#pragma once

#include <cmark-gfm.h>

#include <array>
#include <chrono>
#include <csetjmp>
#include <cstddef>
#include <cstdlib>
#include <functional>
#include <memory>
#include <vector>

namespace quor::markdown {

/// The memory of one parse. The destructor frees all of it at once.
///
/// It also limits how much memory and time a hostile text can cost. cmark-gfm cannot be asked to stop, so
/// when a limit is exceeded, its next request for memory or the next `checkTime` jumps out of the parser.
/// That leaks nothing, because all that the parser owns is in this arena.
///
/// While an arena exists, `allocator` takes memory from it on the thread that made it. A thread has at most
/// one arena at a time.
class CmarkArena {
public:
    /// `limit` is in bytes. `time` is processor time of this thread, so that a busy machine makes no
    /// difference. `pause` is called every few milliseconds of parsing; it must not throw.
    CmarkArena(std::size_t limit, std::chrono::nanoseconds time, std::function<void()> pause);
    CmarkArena(const CmarkArena&) = delete;
    CmarkArena& operator=(const CmarkArena&) = delete;
    CmarkArena(CmarkArena&&) = delete;
    CmarkArena& operator=(CmarkArena&&) = delete;
    ~CmarkArena();

    /// The allocator to pass to functions of cmark-gfm.
    static cmark_mem* allocator();

    /// Jumps to the escape if the time of the arena of this thread is over. Call it wherever cmark-gfm can
    /// work for long without a request for memory.
    static void checkTime();

    /// The bytes of all blocks, including those of released ones that were not used again.
    [[nodiscard]] std::size_t size() const { return size_ - static_cast<std::size_t>(end_ - next_); }

    /// Sets where execution continues when a limit is exceeded. With null, the limits have no effect.
    void setEscape(std::jmp_buf* escape) { escape_ = escape; }

    /// Like `calloc`, `realloc` and `free`, except that a large block is used again only if it was the last
    /// one allocated. They never return null: without memory they jump to the escape, or abort if there is
    /// none.
    void* allocate(std::size_t size);
    void* reallocate(void* block, std::size_t size);
    void release(void* block);

private:
    struct Free {
        void operator()(void* chunk) const { std::free(chunk); }
    };

    /// Like `allocate` for a node of a list of cmark-gfm, which it walks for each node that it appends. The
    /// nodes of all lists lie close together, so that this takes less time.
    void* allocateListNode();
    void addChunk(std::size_t size);
    void look();
    [[noreturn]] void giveUp();

    std::vector<std::unique_ptr<void, Free>> chunks_;
    std::byte* next_ = nullptr;
    std::byte* end_ = nullptr;
    std::byte* latest_ = nullptr; // the block that ends at next_
    std::array<void*, 128> released_{}; // by size, each a list linked through the blocks themselves
    std::size_t size_ = 0;
    std::size_t limit_;
    unsigned requests_ = 0;
    std::chrono::nanoseconds lastLook_{}; // in coarse time
    std::chrono::nanoseconds deadline_; // in processor time of this thread
    std::function<void()> pause_;
    std::jmp_buf* escape_ = nullptr;
};

} // namespace quor::markdown
