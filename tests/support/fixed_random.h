// A source of random bytes that gives what a test says, in that order, and zeros when it runs out.
#pragma once

#include "core/random_source.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace ostrand::test {

class FixedRandom : public VUnknown<IRandomSource> {
public:
    explicit FixedRandom(std::vector<uint8_t> bytes) : left(std::move(bytes)) {}
    bool GetBytes(void* buffer, unsigned count) override
    {
        FillBytes(buffer, count);
        return true;
    }
    void FillBytes(void* buffer, unsigned count) override
    {
        left.resize(left.size() < count ? count : left.size());
        const auto end = left.begin() + static_cast<std::ptrdiff_t>(count);
        std::copy(left.begin(), end, static_cast<uint8_t*>(buffer));
        left.erase(left.begin(), end);
    }
    void Destroy() override {} // lives in the test

    std::vector<uint8_t> left;
};

} // namespace ostrand::test
