// Zeroing of memory that held a secret.
#pragma once

#include <cstddef>

namespace ostrand {

/// Zeroes memory that is about to be freed; a plain memset would be removed as dead.
inline void ZeroForGood(void* data, size_t size)
{
    volatile unsigned char* p = static_cast<unsigned char*>(data);
    while (size-- > 0)
        *p++ = 0;
}

} // namespace ostrand
