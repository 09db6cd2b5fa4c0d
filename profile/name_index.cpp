#include "profile/name_index.h"

#include <algorithm>
#include <cassert>
#include <cstring>

namespace ostrand {

namespace {

constexpr size_t kLongest = 64; // characters; no schema has a longer name
constexpr size_t kPerWord = 4;
constexpr uint64_t kLanes = 0x0001000100010001ull;

/// Four characters, A-Z made a-z. A character beyond ASCII keeps its high bits, so it never equals a name's.
uint64_t FoldedWord(const char16_t* p)
{
    uint64_t word = 0;
    std::memcpy(&word, p, sizeof word);
    const uint64_t atLeastA = word + (0x8000 - u'A') * kLanes;
    const uint64_t pastZ = word + (0x8000 - u'Z' - 1) * kLanes;
    return word | (((atLeastA & ~pastZ) & (0x8000 * kLanes)) >> 10);
}

/// Beginning, middle and end of the name, and its length: three loads whatever the length, without a branch.
uint64_t HashOf(std::u16string_view name)
{
    const char16_t* const p = name.data();
    const size_t n = name.size();
    const uint64_t h = (FoldedWord(p) * 0x9E3779B97F4A7C15ull) ^ (FoldedWord(p + n / 2 - 2) * 0xC2B2AE3D27D4EB4Full) ^
                       (FoldedWord(p + n - kPerWord) * 0xD6E8FEB86659FD93ull) ^ (n * 0xA0761D6478BD642Full);
    return h ^ (h >> 32);
}

} // namespace

void VNameIndex::Add(std::u16string_view name, int position)
{
    assert(name.size() >= kPerWord && name.size() <= kLongest);
    m_entries.push_back(
        {HashOf(name), static_cast<uint32_t>(m_words.size()), static_cast<uint32_t>(name.size()), position});
    for (size_t i = 0; i + kPerWord <= name.size(); i += kPerWord)
        m_words.push_back(FoldedWord(name.data() + i));
    m_words.push_back(FoldedWord(name.data() + name.size() - kPerWord));
    if (m_slots.size() < m_entries.size() * 4)
        Rebuild();
    else
        Place(m_entries.size() - 1);
}

void VNameIndex::Rebuild()
{
    m_slots.assign(std::max<size_t>(16, m_slots.size() * 2), -1);
    for (size_t i = 0; i < m_entries.size(); ++i)
        Place(i);
}

void VNameIndex::Place(size_t entry)
{
    size_t slot = SlotOf(m_entries[entry].hash);
    while (m_slots[slot] >= 0)
        slot = SlotOf(slot + 1);
    m_slots[slot] = static_cast<int16_t>(entry);
}

bool VNameIndex::IsNameOf(const Entry& entry, std::u16string_view name) const
{
    const uint64_t* word = m_words.data() + entry.firstWord;
    uint64_t different = 0;
    for (size_t i = 0; i + kPerWord <= name.size(); i += kPerWord)
        different |= FoldedWord(name.data() + i) ^ *word++;
    return (different | (FoldedWord(name.data() + name.size() - kPerWord) ^ *word)) == 0;
}

int VNameIndex::Find(std::u16string_view name) const
{
    if (name.size() < kPerWord || name.size() > kLongest || m_slots.empty())
        return -1;
    const uint64_t hash = HashOf(name);
    for (size_t slot = SlotOf(hash); m_slots[slot] >= 0; slot = SlotOf(slot + 1)) {
        const Entry& entry = m_entries[static_cast<size_t>(m_slots[slot])];
        if (entry.hash == hash && entry.length == name.size() && IsNameOf(entry, name))
            return entry.position;
    }
    return -1;
}

} // namespace ostrand
