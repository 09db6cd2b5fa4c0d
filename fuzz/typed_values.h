// What a key of a memory store holds, as fuzz targets of records write it.
//
//   kind = "d" number, "s" text, "b" block, "l" list of one text, anything else: a kind of a later version
#pragma once

#include "fuzz/check.h"
#include "stores/memory_store.h"

#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

namespace ostrand::fuzz {

/// Without zeros, which no store keeps in a text.
inline VUnicodeString TextOf(std::string_view content)
{
    std::u16string text;
    for (const char c : content)
        if (c != 0)
            text += static_cast<uint8_t>(c);
    return std::u16string_view(text);
}

inline StoreValue ValueOf(char kind, std::string_view content)
{
    switch (kind) {
    case 'd':
        return static_cast<unsigned>(std::atol(std::string(content).c_str()));
    case 's':
        return TextOf(content);
    case 'b':
        return StoreBlock(content.begin(), content.end());
    case 'l': {
        VStringArray list;
        list.Append(TextOf(content));
        return list;
    }
    default:
        return ForeignValue();
    }
}

} // namespace ostrand::fuzz
