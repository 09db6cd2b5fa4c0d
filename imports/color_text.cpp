#include "imports/color_text.h"

#include "imports/import_text.h"
#include "imports/imported_scheme.h"

#include <algorithm>
#include <charconv>

namespace ostrand {

namespace {

bool ReadHexNumber(std::string_view digits, unsigned& number)
{
    const char* const end = digits.data() + digits.size();
    const auto [behind, code] = std::from_chars(digits.data(), end, number, 16);
    return code == std::errc() && behind == end;
}

/// Three numbers of the same width.
bool ReadHexTriple(std::string_view digits, unsigned (&parts)[3])
{
    const size_t width = digits.size() / 3;
    if (width == 0 || width > 4 || digits.size() % 3 != 0)
        return false;
    for (size_t i = 0; i < 3; ++i)
        if (!ReadHexNumber(digits.substr(i * width, width), parts[i]))
            return false;
    return true;
}

/// X's "#" form gives the upper bits of a colour: "#fff" is f0f0f0, and of "#123456789abc" the lower bytes go.
bool ReadXHexColor(std::string_view digits, uint32_t& color)
{
    unsigned parts[3];
    if (!ReadHexTriple(digits, parts))
        return false;
    for (unsigned& part : parts)
        part = (part << (16 - 4 * digits.size() / 3)) >> 8;
    color = ColorOf(parts[0], parts[1], parts[2]);
    return true;
}

/// Numbers parted by "/", each a fraction of what its digits can hold: "rgb:f/80/ffff". A fourth one is ignored.
bool ReadXFractions(std::string_view text, size_t count, uint32_t& color)
{
    unsigned parts[4] = {};
    for (size_t i = 0; i < count; ++i) {
        const bool isLast = i + 1 == count;
        const size_t end = isLast ? text.size() : text.find('/');
        if (end == 0 || end > 4 || !ReadHexNumber(text.substr(0, end), parts[i]))
            return false;
        const unsigned most = (1u << (4 * end)) - 1;
        parts[i] = (parts[i] * 255 + most / 2) / most;
        text.remove_prefix(isLast ? end : end + 1);
    }
    color = ColorOf(parts[0], parts[1], parts[2]);
    return true;
}

struct NamedColor {
    std::string_view name;
    uint32_t color;
};

// From rgb.txt of the X Window System: what people write in place of numbers, and the sixteen that terminals begin
// with. Some differ from the colours of these names on web pages.
constexpr NamedColor kNamedColors[] = {
    {"black", ColorOf(0x00, 0x00, 0x00)},     {"blue", ColorOf(0x00, 0x00, 0xFF)},
    {"blue2", ColorOf(0x00, 0x00, 0xEE)},     {"brown", ColorOf(0xA5, 0x2A, 0x2A)},
    {"cyan", ColorOf(0x00, 0xFF, 0xFF)},      {"cyan3", ColorOf(0x00, 0xCD, 0xCD)},
    {"darkblue", ColorOf(0x00, 0x00, 0x8B)},  {"darkcyan", ColorOf(0x00, 0x8B, 0x8B)},
    {"darkgray", ColorOf(0xA9, 0xA9, 0xA9)},  {"darkgreen", ColorOf(0x00, 0x64, 0x00)},
    {"darkgrey", ColorOf(0xA9, 0xA9, 0xA9)},  {"darkmagenta", ColorOf(0x8B, 0x00, 0x8B)},
    {"darkred", ColorOf(0x8B, 0x00, 0x00)},   {"gray", ColorOf(0xBE, 0xBE, 0xBE)},
    {"gray50", ColorOf(0x7F, 0x7F, 0x7F)},    {"gray90", ColorOf(0xE5, 0xE5, 0xE5)},
    {"green", ColorOf(0x00, 0xFF, 0x00)},     {"green3", ColorOf(0x00, 0xCD, 0x00)},
    {"grey", ColorOf(0xBE, 0xBE, 0xBE)},      {"lightgray", ColorOf(0xD3, 0xD3, 0xD3)},
    {"lightgrey", ColorOf(0xD3, 0xD3, 0xD3)}, {"magenta", ColorOf(0xFF, 0x00, 0xFF)},
    {"magenta3", ColorOf(0xCD, 0x00, 0xCD)},  {"maroon", ColorOf(0xB0, 0x30, 0x60)},
    {"navy", ColorOf(0x00, 0x00, 0x80)},      {"orange", ColorOf(0xFF, 0xA5, 0x00)},
    {"purple", ColorOf(0xA0, 0x20, 0xF0)},    {"red", ColorOf(0xFF, 0x00, 0x00)},
    {"red3", ColorOf(0xCD, 0x00, 0x00)},      {"white", ColorOf(0xFF, 0xFF, 0xFF)},
    {"yellow", ColorOf(0xFF, 0xFF, 0x00)},    {"yellow3", ColorOf(0xCD, 0xCD, 0x00)},
};

bool ReadNamedColor(std::string_view text, uint32_t& color)
{
    std::string name(text);
    std::erase(name, ' ');
    const auto* const found =
        std::ranges::find_if(kNamedColors, [&name](const NamedColor& row) { return EqualAscii(row.name, name); });
    if (found == std::end(kNamedColors))
        return false;
    color = found->color;
    return true;
}

/// Without "[90]" in front.
std::string_view WithoutOpacity(std::string_view text)
{
    const size_t end = text.starts_with('[') ? text.find(']') : std::string_view::npos;
    return end == std::string_view::npos ? text : Trim(text.substr(end + 1));
}

} // namespace

bool ReadWebColor(std::string_view text, uint32_t& color)
{
    unsigned parts[3];
    if ((text.size() != 4 && text.size() != 7) || text[0] != '#' || !ReadHexTriple(text.substr(1), parts))
        return false;
    const unsigned scale = text.size() == 4 ? 0x11 : 1;
    color = ColorOf(parts[0] * scale, parts[1] * scale, parts[2] * scale);
    return true;
}

bool ReadXColor(std::string_view text, uint32_t& color)
{
    text = WithoutOpacity(text);
    if (text.starts_with('#'))
        return ReadXHexColor(text.substr(1), color);
    if (text.starts_with("rgb:"))
        return ReadXFractions(text.substr(4), 3, color);
    if (text.starts_with("rgba:"))
        return ReadXFractions(text.substr(5), 4, color);
    return ReadNamedColor(text, color);
}

bool ReadDecimalColor(std::u16string_view text, uint32_t& color)
{
    unsigned parts[3] = {};
    size_t part = 0;
    bool hasDigit = false;
    for (const char16_t c : text) {
        if (c >= u'0' && c <= u'9') {
            hasDigit = true;
            parts[part] = parts[part] * 10 + (c - u'0');
            if (parts[part] > 255)
                return false;
        } else if (c == u',' && hasDigit && part < 2) {
            hasDigit = false;
            ++part;
        } else {
            return false;
        }
    }
    if (part != 2 || !hasDigit)
        return false;
    color = ColorOf(parts[0], parts[1], parts[2]);
    return true;
}

} // namespace ostrand
