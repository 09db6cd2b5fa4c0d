// VLogFont: a font as settings describe it, and VProfileLogFont, its value, which still reads the form of old releases.
#pragma once

#include "platform/export.h"
#include "profile/values.h"

#include <array>
#include <cstdint>
#include <span>
#include <string_view>

namespace ostrand {

/// The platform's description of a font, with the widths of its stored form.
struct LOGFONTW {
    int32_t height = 0; ///< below zero: of the characters; above: of the line; in pixels of 1/96 inch
    int32_t width = 0;
    int32_t escapement = 0;
    int32_t orientation = 0;
    int32_t weight = 0; ///< 400 normal, 700 bold
    uint8_t italic = 0;
    uint8_t underline = 0;
    uint8_t strikeOut = 0;
    uint8_t charSet = 0;
    uint8_t outPrecision = 0;
    uint8_t clipPrecision = 0;
    uint8_t quality = 0;
    uint8_t pitchAndFamily = 0;
    std::array<char16_t, 32> face{}; ///< ends at its first zero, or fills all 32

    bool operator==(const LOGFONTW&) const = default;
};

class OSTRAND_API VLogFont : public LOGFONTW {
public:
    static constexpr unsigned kStoredSize = 96;
    static constexpr unsigned kOldStoredSize = 64;

    VLogFont() = default;
    VLogFont(int32_t height, int32_t width, int32_t escapement, int32_t orientation, int32_t weight, uint8_t italic,
             uint8_t underline, uint8_t strikeOut, uint8_t charSet, uint8_t outPrecision, uint8_t clipPrecision,
             uint8_t quality, uint8_t pitchAndFamily, std::u16string_view face, int32_t pointSize);
    /// A plain upright font of `size` pixels; the point size follows from it at 96 pixels an inch.
    VLogFont(int32_t size, std::u16string_view face);
    /// The point size follows from the height.
    explicit VLogFont(const LOGFONTW& font);
    VLogFont(const LOGFONTW& font, int32_t points) : LOGFONTW(font), pointSize(points) {}

    /// The form of old releases: the same 28 bytes in front, a face of 32 characters in the 8-bit code page, the point
    /// size. Any fields are taken; there is nothing to refuse.
    static VLogFont FromOldForm(std::span<const uint8_t, kOldStoredSize> block);

    /// Takes at most 32 characters, up to the first zero.
    void SetFace(std::u16string_view name);
    std::u16string_view GetFace() const;

    void Pack(std::span<uint8_t, kStoredSize> out) const;
    void Unpack(std::span<const uint8_t, kStoredSize> in);

    bool operator==(const VLogFont&) const = default;

    int32_t pointSize = 0; ///< tenths of a point
};

extern template class OSTRAND_API VProfile2<VLogFont, VProfileBinary>;

/// A font's value. A name that ends in " v2" marks the current form; where it is missing, the value without those
/// letters is read in the old form. Saving writes the current name and form, and the old value stays in the store.
class OSTRAND_API VProfileLogFont : public VProfile2<VLogFont, VProfileBinary> {
public:
    using VProfile2::operator=;

    /// A block of any size but that of the current form is taken for the old one, missing bytes being zero.
    bool ReadValue(const VProfileKey* key) override;
};

} // namespace ostrand
