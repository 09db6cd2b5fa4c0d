// What freed blocks hold, seen by the allocator of the test program. For one source of a program: it replaces the
// operators new and delete.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <new>
#include <string_view>

#include <malloc.h>

namespace ostrand::test {

/// A place in a live block, and what is found there when the block is freed.
struct Watch {
    const unsigned char* place = nullptr;
    size_t size = 0;
    bool wasFreed = false;
    bool wasZero = false;
};
inline thread_local Watch t_watch;

/// Bytes that no freed block should hold, and how many did; none are looked for while it is empty.
inline thread_local std::string_view t_wanted;
inline thread_local int t_found = 0;

inline void StartWatching(const void* place, size_t size)
{
    t_watch = {static_cast<const unsigned char*>(place), size, false, false};
}

inline void LookAt(void* block)
{
    if (!block)
        return;
    const auto* const begin = static_cast<unsigned char*>(block);
    const size_t room = malloc_usable_size(block);
    if (!t_wanted.empty() && memmem(block, room, t_wanted.data(), t_wanted.size()))
        ++t_found;
    Watch& w = t_watch;
    if (!w.place || std::less<>()(w.place, begin) || !std::less<>()(w.place, begin + room))
        return;
    w.wasFreed = true;
    w.wasZero = std::all_of(w.place, w.place + w.size, [](unsigned char b) { return b == 0; });
    w.place = nullptr;
}

/// Whether there is anything to see: some sanitizers bring operators of their own.
inline bool CanWatchMemory()
{
    void* const block = ::operator new(1);
    StartWatching(block, 1);
    ::operator delete(block);
    return t_watch.wasFreed;
}

} // namespace ostrand::test

// Weak, since the runtime of some sanitizers brings its own for good.
[[gnu::weak]] void* operator new(size_t size)
{
    if (void* const block = std::malloc(size > 0 ? size : 1))
        return block;
    throw std::bad_alloc();
}
[[gnu::weak]] void operator delete(void* block) noexcept
{
    ostrand::test::LookAt(block);
    std::free(block);
}
[[gnu::weak]] void operator delete(void* block, size_t) noexcept { operator delete(block); }
