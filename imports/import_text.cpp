#include "imports/import_text.h"

#include "core/code_page.h"

#include <algorithm>

namespace ostrand {

namespace {

constexpr std::string_view kUtf16Mark = "\xFF\xFE";

char ToLower(char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; }

} // namespace

VUnicodeString DecodeNarrow(std::string_view bytes)
{
    VUnicodeString text;
    if (!FromUtf8(bytes, text))
        text = FromCodePage(bytes);
    return text;
}

bool DecodeFile(std::string_view bytes, VUnicodeString& out)
{
    if (!bytes.starts_with(kUtf16Mark)) {
        out = DecodeNarrow(bytes.substr(bytes.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0));
        return true;
    }
    bytes.remove_prefix(kUtf16Mark.size());
    char16_t* units = nullptr;
    out = VUnicodeString::WithLength(bytes.size() / 2, units);
    for (size_t i = 0; i + 1 < bytes.size(); i += 2)
        *units++ =
            static_cast<char16_t>(static_cast<unsigned char>(bytes[i]) | static_cast<unsigned char>(bytes[i + 1]) << 8);
    return bytes.size() % 2 == 0;
}

VUnicodeString Cited(std::u16string_view text, size_t most)
{
    std::u16string cited(text.substr(0, most));
    for (char16_t& c : cited)
        if (c < u' ' || c == 0x7F)
            c = u'?';
    if (text.size() > most)
        cited += u"...";
    return std::u16string_view(cited);
}

std::u16string_view BaseName(std::u16string_view fileName)
{
    fileName.remove_prefix(fileName.find_last_of(u"/\\") + 1); // npos + 1 is 0
    const size_t dot = fileName.rfind(u'.');
    return dot == 0 ? fileName.substr(1) : fileName.substr(0, dot);
}

std::string_view Trim(std::string_view text)
{
    constexpr std::string_view kBlanks = " \t\r\n\v\f";
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    return text.substr(0, text.find_last_not_of(kBlanks) + 1);
}

bool EqualAscii(std::string_view a, std::string_view b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](char x, char y) { return ToLower(x) == ToLower(y); });
}

} // namespace ostrand
