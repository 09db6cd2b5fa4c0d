// ColorScheme: a pair of colours for each combination of the text attributes bold, underline and blink, and four
// switches.
#pragma once

#include "platform/export.h"
#include "profile/block.h"
#include "profile/values.h"

namespace ostrand {

/// Bits of an index into the colours: 1 bold, 2 underline, 4 blink.
inline constexpr size_t kAttributeCount = 8;
inline constexpr size_t kBold = 1;
/// "Normal", "Bold" and so on, for an index below kAttributeCount.
OSTRAND_API const char16_t* AttributeName(size_t index);

/// In the store 68 bytes: the four switches, then both lists of colours.
struct OSTRAND_API ColorScheme {
    static constexpr unsigned kStoredSize = 68;
    using Colors = std::array<uint32_t, kAttributeCount>; ///< each 0x00BBGGRR

    uint8_t advanced = 0;       ///< non-zero: editors show all combinations, else "Normal" and "Bold"
    uint8_t overstrikeBold = 1; ///< non-zero: bold is drawn twice, one pixel apart
    uint8_t showUnderline = 1;  ///< non-zero: underlined text has a line
    uint8_t enableBlink = 1;    ///< non-zero: blinking text blinks
    Colors foreground{};
    Colors background{};

    /// The default switches with these colours for all attributes.
    static ColorScheme Of(uint32_t foreground, uint32_t background);

    void Pack(std::span<uint8_t, kStoredSize> out) const;
    void Unpack(std::span<const uint8_t, kStoredSize> in);
    bool operator==(const ColorScheme&) const = default;
};

extern template class OSTRAND_API VProfile2<ColorScheme, VProfileBinary>;

/// A scheme of the list: the value's name is the scheme's. A stored block of another size reads as missing.
class OSTRAND_API ProfileColorScheme : public VProfile2<ColorScheme, VProfileBinary> {
public:
    ProfileColorScheme() = default;
    ProfileColorScheme(std::u16string_view schemeName, const ColorScheme& scheme);
    using VProfile2::operator=;

    bool ReadValue(const VProfileKey* key) override;
    /// Whether the next save writes it.
    bool IsPending() const { return dirty || IsModified(); }
};

} // namespace ostrand
