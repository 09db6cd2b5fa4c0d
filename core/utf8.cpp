#include "core/utf8.h"

#include "core/strings.h"

namespace ostrand {

namespace {

/// Length of the sequence that the lead byte begins, and its least value: shorter forms exist below it.
struct Lead {
    unsigned length;
    char32_t bits;
    char32_t least;
};

Lead LeadOf(unsigned char b)
{
    if (b < 0x80)
        return {1, b, 0};
    if (b >= 0xC2 && b < 0xE0)
        return {2, b & 0x1Fu, 0x80};
    if (b >= 0xE0 && b < 0xF0)
        return {3, b & 0x0Fu, 0x800};
    if (b >= 0xF0 && b < 0xF5)
        return {4, b & 0x07u, 0x10000};
    return {0, 0, 0};
}

} // namespace

unsigned TakeUtf8(std::string_view bytes, char32_t& c)
{
    const Lead lead = LeadOf(static_cast<unsigned char>(bytes[0]));
    if (lead.length == 0 || lead.length > bytes.size())
        return 0;
    c = lead.bits;
    for (unsigned i = 1; i < lead.length; ++i) {
        const auto b = static_cast<unsigned char>(bytes[i]);
        if ((b & 0xC0) != 0x80)
            return 0;
        c = c << 6 | (b & 0x3Fu);
    }
    const bool whole = c >= lead.least && c <= 0x10FFFF && !IsHighSurrogate(c) && !IsLowSurrogate(c);
    return whole ? lead.length : 0;
}

void PutUtf8(char32_t c, std::string& out)
{
    const auto put = [&out](char32_t byte) { out.push_back(static_cast<char>(static_cast<unsigned char>(byte))); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | c >> 6);
        put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | c >> 12);
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | c >> 18);
        put(0x80 | (c >> 12 & 0x3F));
        put(0x80 | (c >> 6 & 0x3F));
        put(0x80 | (c & 0x3F));
    }
}

char32_t TakeUtf16(std::u16string_view text, size_t& position)
{
    const char32_t c = text[position++];
    if (!IsHighSurrogate(c) || position == text.size() || !IsLowSurrogate(text[position]))
        return c;
    return 0x10000 + ((c - 0xD800) << 10) + (text[position++] - 0xDC00u);
}

bool ToUtf8(std::u16string_view text, std::string& out)
{
    bool whole = true;
    out.clear();
    out.reserve(text.size());
    for (size_t i = 0; i < text.size();) {
        char32_t c = TakeUtf16(text, i);
        if (IsHighSurrogate(c) || IsLowSurrogate(c)) {
            whole = false;
            c = U'?';
        }
        PutUtf8(c, out);
    }
    return whole;
}

std::string ToUtf8(std::u16string_view text)
{
    std::string out;
    ToUtf8(text, out);
    return out;
}

bool FromUtf8(std::string_view bytes, VUnicodeString& out)
{
    std::u16string text;
    text.reserve(bytes.size());
    bool whole = true;
    while (!bytes.empty()) {
        char32_t c = 0;
        const unsigned taken = TakeUtf8(bytes, c);
        if (taken == 0) {
            whole = false;
            break;
        }
        PutUtf16(c, text);
        bytes.remove_prefix(taken);
    }
    out = std::u16string_view(text);
    return whole;
}

} // namespace ostrand
