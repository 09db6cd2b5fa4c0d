// Finding names without regard to case: one hash for UTF-16 and for ASCII bytes of the same text, and an index of
// small numbers by that hash. Used for the values of a file, for queued writes and for merge bases.
#pragma once

#include "stores/byte_words.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

namespace ostrand {

/// Mixes one word into a running hash. Finds its strength in the final `FinishHash`.
inline uint64_t MixHash(uint64_t hash, uint64_t word) { return (std::rotl(hash, 23) ^ word) * 0x9E3779B97F4A7C15ull; }

inline uint64_t FinishHash(uint64_t hash)
{
    hash ^= hash >> 32;
    hash *= 0xD6E8FEB86659FD93ull;
    return hash ^ hash >> 29;
}

/// Hash of the bytes; `Change` maps each word of eight bytes before it goes in, and must map each byte by itself.
template <class Change>
uint64_t HashBytes(const char* p, size_t size, Change change)
{
    uint64_t hash = size;
    for (; size > 8; p += 8, size -= 8)
        hash = MixHash(hash, change(LoadWord(p)));
    if (size > 0)
        hash = MixHash(hash, change(size == 8 ? LoadWord(p) : LoadTail(p, size)));
    return FinishHash(hash);
}

inline uint64_t HashBytes(std::string_view bytes)
{
    return HashBytes(bytes.data(), bytes.size(), [](uint64_t word) { return word; });
}

/// The same hash for ASCII texts that differ in case alone, and for no others that people write: where a name's hash
/// stands for the name, "[1]" and "{1}" have to be two.
inline uint64_t HashAsciiNoCase(std::string_view bytes) { return HashBytes(bytes.data(), bytes.size(), FoldAscii); }

/// Equal for names that EqualNoCase calls equal; of an ASCII name it is the HashAsciiNoCase.
uint64_t HashName(std::u16string_view name);

/// Open addressing over numbers from 0; the owner keeps the names. One byte a slot while the numbers are small.
class NameIndex {
public:
    static constexpr size_t kNone = static_cast<size_t>(-1);

    /// Forgets all and makes room for `count` numbers.
    void Reset(size_t count);
    size_t Room() const { return m_room; }

    /// The number under this hash that `same(number)` accepts.
    template <class Same>
    size_t Find(uint64_t hash, Same same) const
    {
        if (m_room == 0)
            return kNone;
        for (size_t slot = hash & m_mask;; slot = (slot + 1) & m_mask) {
            const size_t number = At(slot);
            if (number == kNone || same(number))
                return number;
        }
    }
    /// Puts `number` in; `same` finds the one that it replaces. Answers that one, kNone without.
    template <class Same>
    size_t Put(uint64_t hash, size_t number, Same same)
    {
        size_t slot = hash & m_mask;
        size_t there = At(slot);
        while (there != kNone && !same(there)) {
            slot = (slot + 1) & m_mask;
            there = At(slot);
        }
        Set(slot, number);
        return there;
    }

private:
    size_t At(size_t slot) const
    {
        uint32_t number = m_slots[m_wide ? slot * 4 : slot];
        if (m_wide)
            std::memcpy(&number, &m_slots[slot * 4], 4);
        return static_cast<size_t>(number) - 1;
    }
    void Set(size_t slot, size_t number)
    {
        const auto stored = static_cast<uint32_t>(number + 1);
        if (m_wide)
            std::memcpy(&m_slots[slot * 4], &stored, 4);
        else
            m_slots[slot] = static_cast<uint8_t>(stored);
    }

    std::unique_ptr<uint8_t[]> m_slots; // number + 1, 0 for an empty one
    size_t m_mask = 0;
    size_t m_room = 0;
    bool m_wide = false;
};

} // namespace ostrand
