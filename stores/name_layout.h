// The names of the values in one file, and where they stand. Files that one program wrote for one kind of record have
// the same names in the same order: they share a layout, and comparing with it costs less than hashing each name anew.
#pragma once

#include "stores/name_index.h"

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace ostrand {

/// Values are numbered in file order; each line with a name and "=" has a number, whether its value parses or not.
class NameLayout {
public:
    /// Places of the names' first bytes in a text.
    using Places = std::vector<uint32_t>;

    /// Cuts a text that no known layout fits; `hashes` are those of the names.
    NameLayout(std::string_view text, Places& places, std::vector<uint64_t>& hashes);

    size_t Count() const { return m_names.size(); }
    /// Bytes of the name as spelled; 0 for more than 255.
    size_t SizeOf(size_t number) const { return m_names[number].size; }
    /// Whether the name is ASCII without quotes, of at most 255 bytes, and on no later line.
    bool IsSimple(size_t number) const { return m_names[number].marks == 0; }
    /// Whether the name has quotes or is no ASCII.
    bool IsComplex(size_t number) const { return (m_names[number].marks & kComplex) != 0; }
    /// Whether no later line has the name.
    bool IsLast(size_t number) const { return (m_names[number].marks & kSuperseded) == 0; }
    /// The last line of a name, by its HashName; `same(number)` has the last word.
    template <class Same>
    size_t Find(uint64_t hash, Same same) const
    {
        return m_index.Find(hash, same);
    }

    /// Makes this a layout for other texts, too. False where a name is long or stands twice.
    bool Share(std::string_view text, const Places& places, std::vector<uint64_t> hashes);
    bool IsShared() const { return !m_hashes.empty(); }
    /// HashName of a shared layout's name.
    uint64_t HashOf(size_t number) const { return m_hashes[number]; }
    /// The number of a name of that hash in a shared layout.
    size_t FindHash(uint64_t hash) const
    {
        return Find(hash, [&](size_t number) { return m_hashes[number] == hash; });
    }
    /// Cuts a text that has just the names of this shared layout, spelled like them. Where it hasn't, `places` are
    /// those of the names before the first difference.
    bool Fit(std::string_view text, Places& places) const;

private:
    struct Name {
        uint8_t size;
        uint8_t marks;
    };
    static constexpr uint8_t kComplex = 1;
    static constexpr uint8_t kSuperseded = 2;
    static constexpr uint8_t kLong = 4;

    void BuildIndex(std::string_view text, const Places& places, const std::vector<uint64_t>& hashes);

    std::vector<Name> m_names;
    NameIndex m_index; // the last line of each name
    // Of a shared one:
    std::string m_heads; // each name with the " = " that a save writes behind it
    std::vector<uint64_t> m_hashes;
};

/// The layouts of one store. One thread at a time.
class LayoutPool {
public:
    /// The layout of the text, and the places of its names.
    std::shared_ptr<const NameLayout> Cut(std::string_view text, NameLayout::Places& places);

private:
    /// Kinds of records that are in use at a time.
    static constexpr size_t kMost = 8;

    std::shared_ptr<const NameLayout> FindFitting(std::string_view text, NameLayout::Places& places);
    bool WasSeen(uint64_t names);

    std::vector<std::shared_ptr<const NameLayout>> m_layouts; // the last used one first
    std::array<uint64_t, 2 * kMost> m_seen{};                 // names of files that no layout fitted, as one hash
    size_t m_nextSeen = 0;
};

} // namespace ostrand
