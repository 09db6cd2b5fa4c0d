#include "core/fold.h"

#include <algorithm>
#include <array>

namespace ostrand {

namespace {

constexpr size_t kFolded = 0x530; // the table ends behind Cyrillic

/// Distance from the capital to its small letter, for ranges where it is constant.
struct Range {
    char16_t first, last;
    int distance;
};

constexpr Range kRanges[] = {
    {u'A', u'Z', 32},   {0xC0, 0xD6, 32},   {0xD8, 0xDE, 32},   {0x386, 0x386, 38},
    {0x388, 0x38A, 37}, {0x38C, 0x38C, 64}, {0x38E, 0x38F, 63}, {0x391, 0x3A1, 32},
    {0x3A3, 0x3AB, 32}, {0x400, 0x40F, 80}, {0x410, 0x42F, 32},
};

/// Ranges where capital and small letter alternate, the first of the range being a capital.
constexpr Range kPairs[] = {
    {0x100, 0x12F, 1}, {0x132, 0x137, 1}, {0x139, 0x148, 1}, {0x14A, 0x177, 1}, {0x179, 0x17E, 1}, {0x370, 0x373, 1},
    {0x376, 0x377, 1}, {0x3D8, 0x3EF, 1}, {0x460, 0x481, 1}, {0x48A, 0x4BF, 1}, {0x4C1, 0x4CE, 1}, {0x4D0, 0x52F, 1},
};

struct Tables {
    std::array<char16_t, kFolded> lower{};
    std::array<char16_t, kFolded> upper{};

    constexpr Tables()
    {
        for (size_t c = 0; c < kFolded; ++c)
            lower[c] = upper[c] = static_cast<char16_t>(c);
        for (const Range& r : kRanges)
            for (char16_t c = r.first; c <= r.last; ++c)
                Pair(c, static_cast<char16_t>(c + r.distance));
        for (const Range& r : kPairs)
            for (char16_t c = r.first; c < r.last; c = static_cast<char16_t>(c + 2))
                Pair(c, static_cast<char16_t>(c + 1));
        Pair(0x178, 0xFF);
        Pair(0x4C0, 0x4CF);
    }

    constexpr void Pair(char16_t capital, char16_t small)
    {
        lower[capital] = small;
        upper[small] = capital;
    }
};

constexpr Tables kTables;

} // namespace

char16_t FoldCase(char16_t c) { return c < kFolded ? kTables.lower[c] : c; }

char16_t UpperCase(char16_t c) { return c < kFolded ? kTables.upper[c] : c; }

std::u16string FoldedCase(std::u16string_view text)
{
    std::u16string folded(text);
    for (char16_t& c : folded)
        c = FoldCase(c);
    return folded;
}

bool EqualNoCase(std::u16string_view a, std::u16string_view b)
{
    return a.size() == b.size() && std::equal(a.begin(), a.end(), b.begin(), [](char16_t x, char16_t y) {
               return x == y || FoldCase(x) == FoldCase(y);
           });
}

int CompareNoCase(std::u16string_view a, std::u16string_view b)
{
    const size_t common = std::min(a.size(), b.size());
    for (size_t i = 0; i < common; ++i) {
        const char16_t x = FoldCase(a[i]);
        const char16_t y = FoldCase(b[i]);
        if (x != y)
            return x < y ? -1 : 1;
        if (x == 0)
            break;
    }
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

uint64_t HashNoCase(std::u16string_view text)
{
    // Multiply and rotate over the folded units; quality matters for tables of hundreds, not against an attacker.
    uint64_t h = text.size() * 0x9E3779B97F4A7C15ull;
    for (const char16_t c : text)
        h = (h ^ FoldCase(c)) * 0x9E3779B97F4A7C15ull;
    return h ^ (h >> 29);
}

} // namespace ostrand
