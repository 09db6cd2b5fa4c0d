#include "core/text_encoding.h"

#include "core/code_page.h"

#include <algorithm>

namespace ostrand {

namespace {

// In the order in which a start is compared with them.
constexpr VTextEncoding kMarked[] = {VTextEncoding::Utf8, VTextEncoding::Utf16, VTextEncoding::Utf16Swapped};

unsigned ByteAt(std::string_view bytes, size_t i) { return static_cast<unsigned char>(bytes[i]); }

/// Length of the sequence that a lead byte beyond ASCII begins; 0 for one that this reader doesn't take.
size_t SequenceLength(unsigned lead)
{
    if (lead >= 0xC2 && lead < 0xE0)
        return 2;
    return lead >= 0xE0 && lead < 0xF0 ? 3 : 0;
}

/// Appends the ASCII at `at`, most of any text, in one go; answers the place behind it.
size_t TakeAscii(std::string_view bytes, size_t at, std::u16string& out)
{
    const auto first = bytes.begin() + static_cast<std::ptrdiff_t>(at);
    const auto end = std::find_if(first, bytes.end(), [](char b) { return (b & 0x80) != 0; });
    out.append(first, end);
    return static_cast<size_t>(end - bytes.begin());
}

size_t DecodeUtf8(std::string_view bytes, std::u16string& out)
{
    size_t at = 0;
    while ((at = TakeAscii(bytes, at, out)) < bytes.size()) {
        const unsigned lead = ByteAt(bytes, at);
        const size_t length = SequenceLength(lead);
        if (length == 0)
            return bytes.size();
        unsigned c = lead & (0xFFu >> (length + 1));
        size_t taken = 1;
        for (; taken < length && at + taken < bytes.size(); ++taken) {
            const unsigned b = ByteAt(bytes, at + taken);
            if ((b & 0xC0) != 0x80)
                return bytes.size();
            c = c << 6 | (b & 0x3F);
        }
        if (taken < length)
            break;
        if (length == 3 && c < 0x800)
            return bytes.size();
        out.push_back(static_cast<char16_t>(c));
        at += length;
    }
    return at;
}

size_t DecodeUtf16(std::string_view bytes, bool swapped, std::u16string& out)
{
    const size_t count = bytes.size() / 2;
    for (size_t i = 0; i < count; ++i) {
        const unsigned first = ByteAt(bytes, 2 * i);
        const unsigned second = ByteAt(bytes, 2 * i + 1);
        out.push_back(static_cast<char16_t>(swapped ? first << 8 | second : second << 8 | first));
    }
    return 2 * count;
}

std::string EncodeUtf16(std::u16string_view text, bool swapped)
{
    std::string bytes;
    bytes.reserve(2 * text.size());
    for (const char16_t c : text) {
        const char low = static_cast<char>(c & 0xFF);
        const char high = static_cast<char>(c >> 8);
        bytes.push_back(swapped ? high : low);
        bytes.push_back(swapped ? low : high);
    }
    return bytes;
}

} // namespace

std::string_view MarkOf(VTextEncoding encoding)
{
    switch (encoding) {
    case VTextEncoding::CodePage:
        return {};
    case VTextEncoding::Utf8:
        return "\xEF\xBB\xBF";
    case VTextEncoding::Utf16Swapped:
        return "\xFE\xFF";
    case VTextEncoding::Unknown:
    case VTextEncoding::Utf16:
        break;
    }
    return "\xFF\xFE";
}

VTextEncoding DetectEncoding(std::string_view start)
{
    for (const VTextEncoding encoding : kMarked)
        if (start.starts_with(MarkOf(encoding)))
            return encoding;
    return VTextEncoding::CodePage;
}

size_t DecodeText(VTextEncoding encoding, std::string_view bytes, std::u16string& out)
{
    switch (encoding) {
    case VTextEncoding::Utf8:
        return DecodeUtf8(bytes, out);
    case VTextEncoding::Utf16:
        return DecodeUtf16(bytes, false, out);
    case VTextEncoding::Utf16Swapped:
        return DecodeUtf16(bytes, true, out);
    case VTextEncoding::Unknown:
    case VTextEncoding::CodePage:
        break;
    }
    for (size_t at = 0; (at = TakeAscii(bytes, at, out)) < bytes.size(); ++at)
        out.push_back(FromCodePage(static_cast<unsigned char>(bytes[at])));
    return bytes.size();
}

std::string EncodeText(VTextEncoding encoding, std::u16string_view text)
{
    switch (encoding) {
    case VTextEncoding::CodePage:
        return ToCodePage(text);
    case VTextEncoding::Utf8:
        return ToUtf8(text);
    case VTextEncoding::Utf16Swapped:
        return EncodeUtf16(text, true);
    case VTextEncoding::Unknown:
    case VTextEncoding::Utf16:
        break;
    }
    return EncodeUtf16(text, false);
}

} // namespace ostrand
