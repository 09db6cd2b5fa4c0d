// What a fuzz target asserts.
#pragma once

#include <cstdlib>

namespace ostrand::fuzz {

inline void Check(bool holds)
{
    if (!holds)
        std::abort();
}

} // namespace ostrand::fuzz
