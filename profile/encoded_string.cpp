#include "profile/encoded_string.h"

#include "profile/capi_string.h"
#include "profile/xor_text.h"

namespace ostrand {

void VProfileEncodedString::Load(const VProfileKey* key, const VUnicodeString& valueName, const char16_t*)
{
    SetName(valueName);
    LoadText(key, {});
}

bool VProfileEncodedString::LoadTakingOver(const VProfileKey* key, const VUnicodeString& valueName)
{
    VUnicodeString stored;
    const bool isProtected =
        key && key->ReadString(valueName.c_str(), stored) && VProfileCapiString::Recognises(stored);
    Load(isProtected ? nullptr : key, valueName, nullptr);
    if (!isProtected)
        return false;
    VProfileCapiString former;
    former.SetName(valueName);
    if (!former.Decode(stored)) {
        HoldBack();
        return false;
    }
    SetText(former);
    return true;
}

bool VProfileEncodedString::Encode(VUnicodeString& stored)
{
    stored = EncodeXor(*this);
    return true;
}

bool VProfileEncodedString::Decode(const VUnicodeString& stored)
{
    const VUnicodeString text = DecodeXor(stored);
    if (text.IsEmpty() && !stored.IsEmpty()) // damaged: an empty text is stored as nothing
        return false;
    Value() = text;
    return true;
}

} // namespace ostrand
