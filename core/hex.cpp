#include "core/hex.h"

#include <algorithm>

namespace ostrand {

namespace {

constexpr unsigned kNoDigit = 16;

unsigned DigitOf(char16_t c)
{
    if (c >= u'0' && c <= u'9')
        return c - u'0';
    const unsigned letter = (c | 0x20u) - u'a';
    return letter < 6 ? letter + 10 : kNoDigit;
}

} // namespace

VUnicodeString HexText(std::u16string_view prefix, std::span<const uint8_t> bytes, VHexCase digits)
{
    const char* const all = digits == VHexCase::Upper ? "0123456789ABCDEF" : "0123456789abcdef";
    char16_t* to = nullptr;
    VUnicodeString text = VUnicodeString::WithLength(prefix.size() + 2 * bytes.size(), to);
    to = std::copy(prefix.begin(), prefix.end(), to);
    for (const uint8_t byte : bytes) {
        *to++ = static_cast<char16_t>(all[byte >> 4]);
        *to++ = static_cast<char16_t>(all[byte & 15]);
    }
    return text;
}

bool ReadHex(std::u16string_view digits, VSecretBytes& bytes)
{
    bytes.assign((digits.size() + 1) / 2, 0);
    bool isClean = digits.size() % 2 == 0;
    for (size_t i = 0; i < digits.size(); ++i) {
        const unsigned digit = DigitOf(digits[i]);
        isClean = isClean && digit != kNoDigit;
        bytes[i / 2] |= static_cast<uint8_t>(digit % kNoDigit << (i % 2 == 0 ? 4 : 0));
    }
    return isClean;
}

} // namespace ostrand
