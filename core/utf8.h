// UTF-8 and UTF-16 one character at a time, for readers of text formats that decode as they go.
#pragma once

#include "platform/export.h"

#include <string>
#include <string_view>

namespace ostrand {

constexpr bool IsHighSurrogate(char32_t c) { return c >= 0xD800 && c <= 0xDBFF; }

constexpr bool IsLowSurrogate(char32_t c) { return c >= 0xDC00 && c <= 0xDFFF; }

/// Bytes of the one character at the front of `bytes`, which must not be empty; 0 for a bad sequence, among them the
/// long forms, surrogates and what lies above U+10FFFF.
OSTRAND_API unsigned TakeUtf8(std::string_view bytes, char32_t& c);

/// Appends one character. A surrogate comes out in the three bytes of its number, which no reader of UTF-8 takes.
OSTRAND_API void PutUtf8(char32_t c, std::string& out);

/// The character at `position`, which moves behind it: a pair of surrogates as one, a lone one as itself.
OSTRAND_API char32_t TakeUtf16(std::u16string_view text, size_t& position);

/// Writes one or two units; answers the place behind them.
inline char16_t* PutUtf16(char32_t c, char16_t* to)
{
    if (c >= 0x10000) {
        *to++ = static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
        c = 0xDC00 + ((c - 0x10000) & 0x3FF);
    }
    *to = static_cast<char16_t>(c);
    return to + 1;
}

inline void PutUtf16(char32_t c, std::u16string& out)
{
    char16_t units[2];
    out.append(units, PutUtf16(c, units));
}

} // namespace ostrand
