#include "profile/blowfish_value.h"

namespace ostrand {

template class VProfile2<VBlowfishString, VProfileSz>;

VProfileBlowfishString::VProfileBlowfishString(IRandomSource* source) { SetRandomSource(source); }

VProfileBlowfishString& VProfileBlowfishString::operator=(const char16_t* text)
{
    SetValue(text);
    return *this;
}

void VProfileBlowfishString::Load(const VProfileKey* key, const VUnicodeString& valueName, const char16_t* defaultText)
{
    SetName(valueName);
    LoadValue(key, defaultText);
}

void VProfileBlowfishString::LoadValue(const VProfileKey* key, const char16_t* defaultText)
{
    LoadText(key, defaultText);
    dirty = false;
}

void VProfileBlowfishString::SetRandomSource(IRandomSource* source)
{
    VBlowfishString::SetRandomSource(source);
    saved.SetRandomSource(source);
}

void VProfileBlowfishString::SetCipherMode(unsigned cipherMode)
{
    VBlowfishString::SetCipherMode(cipherMode);
    saved.SetCipherMode(cipherMode);
}

bool VProfileBlowfishString::Encode(VUnicodeString& stored)
{
    stored = VBlowfishString::Encode();
    return true;
}

bool VProfileBlowfishString::Decode(const VUnicodeString& stored)
{
    VBlowfishString::Decode(stored);
    return true;
}

} // namespace ostrand
