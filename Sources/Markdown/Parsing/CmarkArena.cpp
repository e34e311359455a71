// SPDX-License-Identifier: MIT
#include "Markdown/Parsing/CmarkArena.h"

#include <algorithm>
#include <cstring>
#include <ctime>
#include <utility>

namespace quor::markdown {

namespace {

// cmark-gfm passes no context to the allocator's functions.
thread_local CmarkArena* current = nullptr;

constexpr std::size_t alignment = alignof(void*); // enough for every type of cmark-gfm
constexpr std::size_t headerSize = alignment; // holds the size of the block
constexpr std::size_t listNodeSize = sizeof(cmark_llist);
constexpr std::size_t smallestChunk = std::size_t{1} << 15;
constexpr std::size_t largestChunk = std::size_t{1} << 22;

std::size_t aligned(std::size_t size)
{
    return (size + alignment - 1) / alignment * alignment;
}

std::size_t& sizeOf(void* block)
{
    return *reinterpret_cast<std::size_t*>(static_cast<std::byte*>(block) - headerSize);
}

std::chrono::nanoseconds timeOf(clockid_t clock)
{
    timespec time{};
    clock_gettime(clock, &time);
    return std::chrono::seconds(time.tv_sec) + std::chrono::nanoseconds(time.tv_nsec);
}

} // namespace

CmarkArena::CmarkArena(std::size_t limit, std::chrono::nanoseconds time, std::function<void()> pause)
    : limit_(limit)
    , deadline_(timeOf(CLOCK_THREAD_CPUTIME_ID) + time)
    , pause_(std::move(pause))
{
    current = this;
}

CmarkArena::~CmarkArena()
{
    current = nullptr;
}

cmark_mem* CmarkArena::allocator()
{
    static cmark_mem functions{[](std::size_t count, std::size_t size) {
                                   return count * size == listNodeSize ? current->allocateListNode()
                                                                       : current->allocate(count * size);
                               },
        [](void* block, std::size_t size) { return current->reallocate(block, size); },
        [](void* block) { current->release(block); }};
    return &functions;
}

void CmarkArena::giveUp()
{
    if (!escape_)
        std::abort();
    std::longjmp(*escape_, 1);
}

void CmarkArena::checkTime()
{
    if (current->escape_)
        current->look();
}

void CmarkArena::look()
{
    // This clock advances every few milliseconds and is read without a system call, unlike the other one.
    const auto now = timeOf(CLOCK_MONOTONIC_COARSE);
    if (now == lastLook_)
        return;
    lastLook_ = now;
    pause_();
    if (timeOf(CLOCK_THREAD_CPUTIME_ID) > deadline_)
        giveUp();
}

void CmarkArena::addChunk(std::size_t size)
{
    const std::size_t usual = std::clamp(size_ / 2, smallestChunk, largestChunk);
    const std::size_t chunkSize = std::max(size, aligned(usual));
    if (escape_ && chunkSize > limit_ - std::min(size_, limit_))
        giveUp();
    // calloc gets large chunks zeroed from the system, so this costs nothing for pages that are never used.
    void* chunk = std::calloc(1, chunkSize);
    if (!chunk)
        giveUp();
    chunks_.emplace_back(chunk);
    size_ += chunkSize;
    next_ = static_cast<std::byte*>(chunk);
    end_ = next_ + chunkSize;
}

void* CmarkArena::allocate(std::size_t size)
{
    constexpr unsigned requestsBetween = 16; // even this clock takes as long as a request
    if (++requests_ % requestsBetween == 0)
        checkTime();
    const std::size_t whole = headerSize + aligned(size);
    const std::size_t sizeClass = aligned(size) / alignment;
    if (sizeClass < released_.size() && released_[sizeClass]) {
        void* block = released_[sizeClass];
        std::memcpy(&released_[sizeClass], block, sizeof block);
        sizeOf(block) = size;
        return std::memset(block, 0, aligned(size));
    }
    if (static_cast<std::size_t>(end_ - next_) < whole)
        addChunk(whole);
    latest_ = next_ + headerSize;
    next_ += whole;
    sizeOf(latest_) = size;
    return latest_;
}

void* CmarkArena::allocateListNode()
{
    constexpr std::size_t nodes = 256;
    constexpr std::size_t step = headerSize + listNodeSize;
    void*& first = released_[listNodeSize / alignment];
    if (!first) {
        auto* block = static_cast<std::byte*>(allocate(nodes * step));
        latest_ = nullptr; // its parts are released one by one
        for (std::size_t i = 0; i < nodes; ++i) {
            std::byte* node = block + i * step;
            sizeOf(node) = listNodeSize;
            std::memcpy(node, &first, sizeof first);
            first = node;
        }
    }
    return allocate(listNodeSize);
}

void* CmarkArena::reallocate(void* block, std::size_t size)
{
    if (!block)
        return allocate(size);
    const std::size_t before = sizeOf(block);
    if (block == latest_ && latest_ + aligned(size) <= end_ && size >= before) {
        next_ = latest_ + aligned(size);
        sizeOf(block) = size;
        return block;
    }
    void* moved = allocate(size);
    std::memcpy(moved, block, std::min(before, size));
    release(block);
    return moved;
}

void CmarkArena::release(void* block)
{
    if (!block)
        return;
    if (block != latest_) {
        const std::size_t sizeClass = aligned(sizeOf(block)) / alignment;
        if (sizeClass > 0 && sizeClass < released_.size()) {
            std::memcpy(block, &released_[sizeClass], sizeof block);
            released_[sizeClass] = block;
        }
        return;
    }
    // `allocate` relies on unused memory being zero.
    std::byte* start = latest_ - headerSize;
    std::memset(start, 0, static_cast<std::size_t>(next_ - start));
    next_ = start;
    latest_ = nullptr;
}

} // namespace quor::markdown
