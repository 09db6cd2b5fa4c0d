// Looking at eight bytes at a time: loads, and tests of all bytes of a word at once. A test answers with the top bit of
// each byte that passes, possibly also of bytes behind the first that does: good for "is there any" and "which first".
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace ostrand {

inline constexpr uint64_t kEachByte = 0x0101010101010101ull;
inline constexpr uint64_t kEachTop = 0x80 * kEachByte;

/// The first byte in the lowest place, whatever the machine.
template <class Word>
Word Load(const char* p)
{
    Word word = 0;
    if constexpr (std::endian::native == std::endian::little)
        std::memcpy(&word, p, sizeof word);
    else
        for (size_t i = 0; i < sizeof word; ++i)
            word |= static_cast<Word>(static_cast<unsigned char>(p[i])) << 8 * i;
    return word;
}

inline uint64_t LoadWord(const char* p) { return Load<uint64_t>(p); }

/// `size` bytes, 1 to 7, as one word; some stand in it twice, and none but those and zeros.
inline uint64_t LoadTail(const char* p, size_t size)
{
    if (size >= 4)
        return Load<uint32_t>(p) | static_cast<uint64_t>(Load<uint32_t>(p + size - 4)) << 32;
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

/// Small letters in all eight bytes, everything else unchanged.
inline uint64_t FoldAscii(uint64_t word)
{
    const uint64_t low = word & ~kEachTop;
    const uint64_t fromA = low + (0x80 - 'A') * kEachByte;
    const uint64_t behindZ = low + (0x80 - 'Z' - 1) * kEachByte;
    return word | (fromA & ~behindZ & ~word & kEachTop) >> 2;
}

/// Which byte passed first; `passed` isn't 0.
inline size_t FirstOf(uint64_t passed) { return static_cast<size_t>(std::countr_zero(passed)) / 8; }

/// The first line feed, or `end`. Made for lines of settings, whose values are a few bytes long.
inline const char* FindFeed(const char* p, const char* end)
{
    for (int i = 0; i < 2 && end - p >= 8; ++i, p += 8)
        if (const uint64_t feeds = TestEqual(LoadWord(p), '\n'); feeds != 0)
            return p + FirstOf(feeds);
    const void* const feed = p == end ? nullptr : std::memchr(p, '\n', static_cast<size_t>(end - p));
    return feed ? static_cast<const char*>(feed) : end;
}

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
