#include "stores/file_names.h"

#include "core/fold.h"
#include "core/utf8.h"

#include <cstddef>

namespace ostrand {

namespace {

constexpr char kHexDigits[] = "0123456789ABCDEF";

/// Whether a character stands for itself in either direction, whatever stands before and behind it.
constexpr bool IsOrdinary(char32_t c, bool isLast)
{
    return c >= U' ' && c < 0x7F && c != U'%' && c != U'.' && c != U'/' && c != U'\\' && (c != U' ' || !isLast);
}

void PutEscaped(std::string_view bytes, std::string& out)
{
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        out.push_back('%');
        out.push_back(kHexDigits[byte >> 4]);
        out.push_back(kHexDigits[byte & 15]);
    }
}

bool MustEscape(std::u16string_view name, size_t first, size_t behind, char32_t c)
{
    if (c == U'%' || c == U'/' || c < 0x20 || c == 0x7F || IsHighSurrogate(c) || IsLowSurrogate(c))
        return true;
    if (c != U'.' && c != U' ')
        return false;
    const bool isLast = behind == name.size();
    return isLast || (c == U'.' && (first == 0 || EqualNoCase(name.substr(first), u".ini")));
}

int HexValue(char c)
{
    const size_t i = std::string_view(kHexDigits, 16).find(c);
    return i == std::string_view::npos ? -1 : static_cast<int>(i);
}

/// Plain bytes of a file name; false for a "%" without two capital digits behind it.
bool Unescape(std::string_view file, std::string& bytes)
{
    for (size_t i = 0; i < file.size(); ++i) {
        if (file[i] != '%') {
            bytes.push_back(file[i]);
            continue;
        }
        const int high = i + 2 < file.size() ? HexValue(file[i + 1]) : -1;
        const int low = high < 0 ? -1 : HexValue(file[i + 2]);
        if (low < 0)
            return false;
        bytes.push_back(static_cast<char>(high << 4 | low));
        i += 2;
    }
    return true;
}

/// One character, or the three bytes of a lone surrogate; 0 for neither.
unsigned TakeCharacter(std::string_view bytes, char32_t& c)
{
    if (const unsigned taken = TakeUtf8(bytes, c); taken != 0)
        return taken;
    const auto byte = [bytes](size_t i) { return static_cast<unsigned char>(bytes[i]); };
    if (bytes.size() < 3 || byte(0) != 0xED || (byte(1) & 0xE0) != 0xA0 || (byte(2) & 0xC0) != 0x80)
        return 0;
    c = 0xD000u | (byte(1) & 0x3Fu) << 6 | (byte(2) & 0x3Fu);
    return 3;
}

} // namespace

std::string EncodeKeyName(std::u16string_view name)
{
    std::string out;
    out.reserve(name.size() + kValuesSuffix.size());
    AppendKeyName(name, out);
    return out;
}

void AppendKeyName(std::u16string_view name, std::string& out)
{
    for (size_t i = 0; i < name.size();) {
        if (IsOrdinary(name[i], i + 1 == name.size())) {
            out.push_back(static_cast<char>(name[i++]));
            continue;
        }
        const size_t first = i;
        const char32_t c = TakeUtf16(name, i);
        std::string bytes;
        PutUtf8(c, bytes);
        if (MustEscape(name, first, i, c))
            PutEscaped(bytes, out);
        else
            out += bytes;
    }
}

bool DecodeKeyName(std::string_view file, std::u16string& name)
{
    std::string bytes;
    name.assign(file.begin(), file.end());
    size_t plain = 0;
    while (plain < file.size() && IsOrdinary(static_cast<unsigned char>(file[plain]), plain + 1 == file.size()))
        ++plain;
    if (plain == file.size() && plain > 0)
        return true;
    name.clear();
    // A backslash parts levels: a file with one in its name can't be asked for.
    if (file.empty() || file.find('\\') != std::string_view::npos || !Unescape(file, bytes))
        return false;
    for (std::string_view rest = bytes; !rest.empty();) {
        char32_t c = 0;
        const unsigned taken = TakeCharacter(rest, c);
        if (taken == 0)
            return false;
        PutUtf16(c, name);
        rest.remove_prefix(taken);
    }
    // Only the one spelling that a name gives: two files can't stand for one key.
    return EncodeKeyName(name) == file;
}

} // namespace ostrand
