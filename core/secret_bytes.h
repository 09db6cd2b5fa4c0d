// VSecretBytes: bytes of a secret on their way from one form to another, zeroed wherever they have been.
#pragma once

#include "core/zero.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace ostrand {

/// Zeroes each block before it is given back.
template <class T>
struct ZeroingAllocator {
    using value_type = T;

    ZeroingAllocator() = default;
    template <class U>
    ZeroingAllocator(const ZeroingAllocator<U>&) // NOLINT(google-explicit-constructor): as containers ask for it
    {
    }
    T* allocate(size_t count) { return std::allocator<T>().allocate(count); }
    void deallocate(T* block, size_t count)
    {
        ZeroForGood(block, count * sizeof(T));
        std::allocator<T>().deallocate(block, count);
    }
    bool operator==(const ZeroingAllocator&) const = default;
};

using VSecretBytes = std::vector<uint8_t, ZeroingAllocator<uint8_t>>;

} // namespace ostrand
