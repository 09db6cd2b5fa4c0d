// VNameIndex: finds one of a fixed set of ASCII names, in any case, in a few nanoseconds.
#pragma once

#include "platform/export.h"

#include <cstdint>
#include <string_view>
#include <vector>

namespace ostrand {

/// Filled once, then only read, from any thread. Open addressing over the names folded to lower case, four characters
/// to a word, so that hashing and comparing run over words; the end of a name is one more word, overlapping.
class OSTRAND_API VNameIndex {
public:
    /// Names have 4 to 64 characters and differ in more than case; `position` is what Find answers.
    void Add(std::u16string_view name, int position);
    /// -1 for a name that isn't there.
    int Find(std::u16string_view name) const;

private:
    struct Entry {
        uint64_t hash;
        uint32_t firstWord;
        uint32_t length; // in characters
        int position;
    };

    size_t SlotOf(uint64_t hash) const { return hash & (m_slots.size() - 1); }
    void Rebuild();
    void Place(size_t entry);
    bool IsNameOf(const Entry& entry, std::u16string_view name) const;

    std::vector<uint64_t> m_words;
    std::vector<Entry> m_entries;
    std::vector<int16_t> m_slots; // index of an entry, -1 for none; a power of two, at most a quarter full
};

} // namespace ostrand
