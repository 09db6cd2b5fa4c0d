// Looking at eight bytes at a time: loads, and tests of all bytes of a word at once. A test answers with the top bit of
// each byte that passes, possibly also of bytes above the first that does: good for "is there any".
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace ostrand {

inline constexpr uint64_t kEachByte = 0x0101010101010101ull;
inline constexpr uint64_t kEachTop = 0x80 * kEachByte;

inline uint64_t LoadWord(const char* p)
{
    uint64_t word = 0;
    std::memcpy(&word, p, sizeof word);
    return word;
}

/// `size` bytes, 1 to 7, as one word; some stand in it twice, and none but those and zeros.
inline uint64_t LoadTail(const char* p, size_t size)
{
    if (size >= 4) {
        uint32_t low = 0;
        uint32_t high = 0;
        std::memcpy(&low, p, 4);
        std::memcpy(&high, p + size - 4, 4);
        return low | static_cast<uint64_t>(high) << 32;
    }
    const auto byte = [p](size_t i) { return static_cast<uint64_t>(static_cast<unsigned char>(p[i])); };
    return byte(0) | byte(size / 2) << 8 | byte(size - 1) << 16;
}

inline uint64_t TestEqual(uint64_t word, char c)
{
    const uint64_t difference = word ^ static_cast<unsigned char>(c) * kEachByte;
    return (difference - kEachByte) & ~difference & kEachTop;
}

/// Bytes below `limit`, which is at most 128.
inline uint64_t TestBelow(uint64_t word, unsigned char limit) { return (word - limit * kEachByte) & ~word & kEachTop; }

inline uint64_t TestNonAscii(uint64_t word) { return word & kEachTop; }

/// Whether `test` passes no byte.
template <class Test>
bool HasNone(const char* p, size_t size, Test test)
{
    if (size < 8) {
        // Three bytes or less leave zeros in the word: blanks instead, which no test here looks for.
        const uint64_t filler = size < 4 ? 0x20 * kEachByte << 24 : 0;
        return size == 0 || test(LoadTail(p, size) | filler) == 0;
    }
    for (; size > 8; p += 8, size -= 8)
        if (test(LoadWord(p)) != 0)
            return false;
    return test(LoadWord(p + size - 8)) == 0;
}

} // namespace ostrand
