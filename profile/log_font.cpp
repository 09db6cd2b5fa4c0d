#include "profile/log_font.h"

#include "core/code_page.h"
#include "profile/block.h"

#include <algorithm>
#include <cstdlib>

namespace ostrand {

namespace {

constexpr std::u16string_view kCurrentFormMark = u" v2";

/// Both stored forms begin with the same fields.
template <class Font>
auto FieldsBeforeFace(Font& f)
{
    return std::tie(f.height, f.width, f.escapement, f.orientation, f.weight, f.italic, f.underline, f.strikeOut,
                    f.charSet, f.outPrecision, f.clipPrecision, f.quality, f.pitchAndFamily);
}

template <class Font>
auto AllFields(Font& f)
{
    return std::tuple_cat(FieldsBeforeFace(f), std::tie(f.face, f.pointSize));
}

/// Tenths of a point of so many pixels, at 96 pixels and 72 points an inch.
int32_t PointSizeOf(int32_t pixels) { return static_cast<int32_t>(std::abs(int64_t{pixels}) * 720 / 96); }

} // namespace

VLogFont::VLogFont(int32_t fontHeight, int32_t fontWidth, int32_t fontEscapement, int32_t fontOrientation,
                   int32_t fontWeight, uint8_t fontItalic, uint8_t fontUnderline, uint8_t fontStrikeOut,
                   uint8_t fontCharSet, uint8_t fontOutPrecision, uint8_t fontClipPrecision, uint8_t fontQuality,
                   uint8_t fontPitchAndFamily, std::u16string_view fontFace, int32_t points)
    : LOGFONTW{fontHeight,         fontWidth,
               fontEscapement,     fontOrientation,
               fontWeight,         fontItalic,
               fontUnderline,      fontStrikeOut,
               fontCharSet,        fontOutPrecision,
               fontClipPrecision,  fontQuality,
               fontPitchAndFamily, {}},
      pointSize(points)
{
    SetFace(fontFace);
}

VLogFont::VLogFont(int32_t size, std::u16string_view fontFace)
    : VLogFont(static_cast<int32_t>(-int64_t{size}), 0, 0, 0, 400, 0, 0, 0, 1, 0, 0, 0, 1, fontFace, PointSizeOf(size))
{
}

VLogFont::VLogFont(const LOGFONTW& font) : VLogFont(font, PointSizeOf(font.height)) {}

VLogFont VLogFont::FromOldForm(std::span<const uint8_t, kOldStoredSize> block)
{
    VLogFont font;
    std::array<uint8_t, 32> narrowFace;
    UnpackFields(block, std::tuple_cat(FieldsBeforeFace(font), std::tie(narrowFace, font.pointSize)));
    font.SetFace(FromCodePage(std::string_view(reinterpret_cast<const char*>(narrowFace.data()), narrowFace.size())));
    return font;
}

void VLogFont::SetFace(std::u16string_view name)
{
    name = name.substr(0, std::min(name.find(u'\0'), face.size()));
    face.fill(0);
    std::copy(name.begin(), name.end(), face.begin());
}

std::u16string_view VLogFont::GetFace() const
{
    const auto end = std::find(face.begin(), face.end(), u'\0');
    return {face.data(), static_cast<size_t>(end - face.begin())};
}

void VLogFont::Pack(std::span<uint8_t, kStoredSize> out) const { PackFields(out, AllFields(*this)); }

void VLogFont::Unpack(std::span<const uint8_t, kStoredSize> in) { UnpackFields(in, AllFields(*this)); }

bool VProfileLogFont::ReadValue(const VProfileKey* key)
{
    if (!key)
        return false;
    std::array<uint8_t, kStoredSize> block{};
    unsigned size = kStoredSize;
    if (!ReadStored(key, block.data(), size)) {
        const size_t mark = name.Find(kCurrentFormMark);
        size = kOldStoredSize;
        if (mark == VUnicodeString::npos || !key->ReadBinary(name.Left(mark).c_str(), block.data(), &size))
            return false;
    }
    if (size == kStoredSize)
        Unpack(block);
    else
        Value() = FromOldForm(std::span<const uint8_t, kStoredSize>(block).first<kOldStoredSize>());
    return true;
}

template class VProfile2<VLogFont, VProfileBinary>;

} // namespace ostrand
