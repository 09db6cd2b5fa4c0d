// KeyBindings: a code and a string for each of 4096 keys, most of which have neither.
#pragma once

#include "core/strings.h"
#include "keymap/key_index.h"

#include <array>
#include <cstdint>
#include <memory>

namespace ostrand {

/// Takes memory in pages of 64 keys, each when its first key is set: an empty map is half a KiB, one with the default
/// bindings 12 KiB, a full one 50. A copy shares the buffers of the strings. Indexes are below kKeyCount.
class OSTRAND_API KeyBindings {
public:
    KeyBindings() = default;
    KeyBindings(const KeyBindings& other);
    KeyBindings(KeyBindings&& other) noexcept = default;
    KeyBindings& operator=(KeyBindings other) noexcept;
    ~KeyBindings() = default;

    uint32_t Function(unsigned index) const
    {
        const Page* const page = PageOf(index);
        return page ? page->functions[index % kPageSize] : 0;
    }
    const VUnicodeString& String(unsigned index) const;
    void SetFunction(unsigned index, uint32_t code);
    void SetString(unsigned index, const VUnicodeString& text);
    /// Sets all codes to 0; strings stay.
    void ClearFunctions();

    /// Whether every code and every string is the same, unit by unit.
    bool operator==(const KeyBindings& other) const;

private:
    static constexpr unsigned kPageSize = 64;
    struct Page {
        std::array<uint32_t, kPageSize> functions{};
        std::array<VUnicodeString, kPageSize> strings;
        bool operator==(const Page& other) const;
    };

    const Page* PageOf(unsigned index) const { return m_pages[index / kPageSize].get(); }
    Page& MakePage(unsigned index);

    std::array<std::unique_ptr<Page>, kKeyCount / kPageSize> m_pages; // null: no code, no string
};

} // namespace ostrand
