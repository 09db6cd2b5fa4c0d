#include "config/global/color_scheme.h"

namespace ostrand {

template class VProfile2<ColorScheme, VProfileBinary>;

const char16_t* AttributeName(size_t index)
{
    static constexpr std::array<const char16_t*, kAttributeCount> kNames = {
        u"Normal", u"Bold",       u"Underline",       u"Bold Underline",
        u"Blink",  u"Blink Bold", u"Blink Underline", u"Blink Bold Underline"};
    return kNames[index];
}

ColorScheme ColorScheme::Of(uint32_t foreground, uint32_t background)
{
    ColorScheme scheme;
    scheme.foreground.fill(foreground);
    scheme.background.fill(background);
    return scheme;
}

void ColorScheme::Pack(std::span<uint8_t, kStoredSize> out) const
{
    PackFields(out, std::tie(advanced, overstrikeBold, showUnderline, enableBlink, foreground, background));
}

void ColorScheme::Unpack(std::span<const uint8_t, kStoredSize> in)
{
    UnpackFields(in, std::tie(advanced, overstrikeBold, showUnderline, enableBlink, foreground, background));
}

ProfileColorScheme::ProfileColorScheme(std::u16string_view schemeName, const ColorScheme& scheme)
{
    SetName(VUnicodeString(schemeName));
    Value() = scheme;
    saved = scheme;
}

bool ProfileColorScheme::ReadValue(const VProfileKey* key)
{
    unsigned size = 0;
    return key && key->ReadBinary(name.c_str(), nullptr, &size) && size == kStoredSize && VProfile2::ReadValue(key);
}

} // namespace ostrand
