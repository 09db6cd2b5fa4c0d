#include "keymap/virtual_keys.h"

#include "core/fold.h"
#include "core/format.h"
#include "keymap/key_index.h"
#include "keymap/virtual_key_table.h"

#include <algorithm>
#include <functional>

namespace ostrand {

namespace {

static_assert(std::ranges::adjacent_find(kVirtualKeyTable, std::greater_equal<>(), &VirtualKeyRow::name) ==
              kVirtualKeyTable.end());

/// Of all names.
constexpr std::u16string_view kPrefix = u"VK_";

std::u16string_view NameBehindPrefix(const VirtualKeyRow& row) { return row.name.substr(kPrefix.size()); }

constexpr size_t kNoRow = kVirtualKeyTable.size();
/// The row of each code. No code occurs twice, so the answer is that of a walk.
constexpr auto kRowOf = [] {
    std::array<uint8_t, kVirtualKeyMask + 1> rows{};
    rows.fill(kNoRow);
    for (size_t i = 0; i < kVirtualKeyTable.size(); ++i)
        rows[kVirtualKeyTable[i].code] = static_cast<uint8_t>(i);
    return rows;
}();

bool IsDigit(char16_t c) { return c >= u'0' && c <= u'9'; }

unsigned DigitOf(char16_t c)
{
    if (IsDigit(c))
        return c - u'0';
    const char16_t capital = UpperCase(c);
    return capital >= u'A' && capital <= u'F' ? capital - u'A' + 10u : 16;
}

/// A number in base 0 of the C library; -1 above 255.
int ParseNumber(std::u16string_view field)
{
    unsigned base = 10;
    if (field.size() > 2 && EqualNoCase(field.substr(0, 2), u"0x") && DigitOf(field[2]) < 16) {
        base = 16;
        field.remove_prefix(2);
    } else if (field[0] == u'0') {
        base = 8;
    }
    unsigned value = 0;
    for (const char16_t c : field) {
        const unsigned digit = DigitOf(c);
        if (digit >= base)
            break;
        value = value * base + digit;
        if (value > kVirtualKeyMask)
            return -1;
    }
    return static_cast<int>(value);
}

} // namespace

int VirtualKeyCodeOf(std::u16string_view name)
{
    if (!name.starts_with(kPrefix))
        return -1;
    name.remove_prefix(kPrefix.size());
    const auto* const row = std::ranges::lower_bound(kVirtualKeyTable, name, {}, NameBehindPrefix);
    return row != kVirtualKeyTable.end() && NameBehindPrefix(*row) == name ? row->code : -1;
}

int ParseVirtualKey(std::u16string_view field)
{
    return !field.empty() && IsDigit(field[0]) ? ParseNumber(field) : VirtualKeyCodeOf(field);
}

VUnicodeString VirtualKeyName(unsigned code)
{
    const size_t row = code <= kVirtualKeyMask ? kRowOf[code] : kNoRow;
    return row == kNoRow ? Format(u"0x%1!X!", code) : VUnicodeString(kVirtualKeyTable[row].name);
}

} // namespace ostrand
