#include "core/code_page.h"

#include <algorithm>
#include <iterator>

namespace ostrand {

namespace {

// Bytes 80 to 9F; all others are the characters of the same number.
constexpr char16_t kUpperControls[] = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178,
};

} // namespace

unsigned char ToCodePage(char16_t character)
{
    if (character <= 0xFF && (character < 0x80 || character > 0x9F))
        return static_cast<unsigned char>(character);
    const auto* const found = std::find(std::begin(kUpperControls), std::end(kUpperControls), character);
    return found == std::end(kUpperControls) ? u8'?'
                                             : static_cast<unsigned char>(0x80 + (found - std::begin(kUpperControls)));
}

char16_t FromCodePage(unsigned char byte) { return byte >= 0x80 && byte <= 0x9F ? kUpperControls[byte - 0x80] : byte; }

VUnicodeString FromCodePage(std::string_view bytes)
{
    char16_t* characters = nullptr;
    VUnicodeString text = VUnicodeString::WithLength(bytes.size(), characters);
    std::transform(bytes.begin(), bytes.end(), characters,
                   [](char b) { return FromCodePage(static_cast<unsigned char>(b)); });
    return text;
}

std::string ToCodePage(std::u16string_view text)
{
    std::string bytes(text.size(), '\0');
    std::transform(text.begin(), text.end(), bytes.begin(),
                   [](char16_t c) { return static_cast<char>(ToCodePage(c)); });
    return bytes;
}

} // namespace ostrand
