#include "tools/text.h"

namespace ostrand::tool {

namespace {

constexpr size_t kLongestCitation = 60; // characters of 16 bits

void AppendEscape(std::string& out, unsigned unit)
{
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    out += "\\u";
    for (const int shift : {12, 8, 4, 0})
        out += kDigits[unit >> shift & 0xF];
}

unsigned ByteAt(std::string_view text, size_t i) { return i < text.size() ? static_cast<unsigned char>(text[i]) : 0; }

/// Bytes of a character that no terminal should get, and the 16-bit unit that it stands for; 0 for any other. Lone
/// surrogates begin with ED and a byte from A0 on, which UTF-8 doesn't have; controls behind ASCII with C2.
size_t UnshowableAt(std::string_view text, size_t i, unsigned& unit)
{
    const unsigned first = ByteAt(text, i);
    const unsigned second = ByteAt(text, i + 1);
    unit = first;
    if (first < 0x20 || first == 0x7F)
        return 1;
    if (first == 0xC2 && second < 0xA0) {
        unit = second;
        return 2;
    }
    if (first == 0xED && second >= 0xA0) {
        unit = 0xD000u | (second & 0x3F) << 6 | (ByteAt(text, i + 2) & 0x3F);
        return 3;
    }
    return 0;
}

/// `kept`: controls that stay. `escaped` and `letters`: characters with an escape of one letter.
std::string Escaped(std::string_view text, std::string_view kept, std::string_view escaped, std::string_view letters)
{
    std::string out;
    for (size_t i = 0; i < text.size(); ++i) {
        unsigned unit = 0;
        const size_t letter = escaped.find(text[i]);
        if (letter != std::string_view::npos) {
            out += '\\';
            out += letters[letter];
        } else if (const size_t bytes = UnshowableAt(text, i, unit);
                   bytes > 0 && kept.find(text[i]) == std::string_view::npos) {
            AppendEscape(out, unit);
            i += bytes - 1;
        } else {
            out += text[i];
        }
    }
    return out;
}

bool IsHigh(char16_t c) { return c >= 0xD800 && c < 0xDC00; }

bool IsLow(char16_t c) { return c >= 0xDC00 && c < 0xE000; }

void AppendUtf8(std::string& out, char32_t c)
{
    const auto tail = [&](int shift) { out += static_cast<char>(0x80 | (c >> shift & 0x3F)); };
    if (c < 0x80) {
        out += static_cast<char>(c);
    } else if (c < 0x800) {
        out += static_cast<char>(0xC0 | c >> 6);
        tail(0);
    } else if (c < 0x10000) {
        out += static_cast<char>(0xE0 | c >> 12);
        tail(6);
        tail(0);
    } else {
        out += static_cast<char>(0xF0 | c >> 18);
        tail(12);
        tail(6);
        tail(0);
    }
}

} // namespace

std::string Lossless(std::u16string_view text)
{
    std::string out;
    for (size_t i = 0; i < text.size(); ++i) {
        char32_t c = text[i];
        if (IsHigh(text[i]) && i + 1 < text.size() && IsLow(text[i + 1]))
            c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00u);
        AppendUtf8(out, c);
    }
    return out;
}

std::string Plain(std::string_view lossless) { return Escaped(lossless, "\t\n", "", ""); }

std::string Quoted(std::string_view lossless) { return '"' + Escaped(lossless, "", "\"\\\n\r\t", "\"\\nrt") + '"'; }

std::string Cited(std::string_view typed)
{
    VUnicodeString text;
    const bool isWhole = FromUtf8(typed, text);
    const bool isLong = text.GetLength() > kLongestCitation;
    std::string out = "'" + Escaped(Lossless(text.Left(kLongestCitation)), "", "", "") + (isLong ? "...'" : "'");
    return isWhole ? out : out + ", which isn't UTF-8";
}

} // namespace ostrand::tool
