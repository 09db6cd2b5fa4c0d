// A cursor over text that was written by "%d", "%lu", "%x" and "%s": list view states and the like. It reads as the C
// library scans: blanks in front of a value are skipped, a value ends at the first character that doesn't belong to it.
#pragma once

#include "platform/export.h"

#include <cstdint>
#include <string_view>

namespace ostrand {

/// Each operation moves the cursor behind what it took. A failed one answers false, leaves its target alone, and the
/// cursor where it was, but for blanks.
class OSTRAND_API VScanner {
public:
    explicit VScanner(std::u16string_view text) : m_rest(text) {}

    /// Blanks, a sign, decimal digits. Numbers of any length wrap to 32 bits.
    bool Int(int& out);
    /// As Int; "-1" is 4294967295.
    bool UnsignedLong(uint32_t& out);
    /// Blanks, a sign, "0x" or not, hexadecimal digits; wraps like Int.
    bool Hex(uint32_t& out);
    /// Exactly this character, without blanks in front.
    bool Literal(char16_t c);
    /// Blanks, then all up to the next blank; false at the end of the text.
    bool Word(std::u16string_view& out);

    std::u16string_view Rest() const { return m_rest; }

private:
    void SkipBlanks();
    bool Number(uint32_t base, uint32_t& out);

    std::u16string_view m_rest;
};

} // namespace ostrand
