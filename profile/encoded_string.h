// VProfileEncodedString: a text that the store holds in the encoded form of profile/xor_text.h.
#pragma once

#include "platform/export.h"
#include "profile/secret_value.h"

namespace ostrand {

class OSTRAND_API VProfileEncodedString : public VProfileSecret<VProfileEncodedString, VUnicodeString> {
public:
    using VProfileSecret::operator=;

    /// The stored text, clean; one that decodes to nothing, held back; else nothing, pending. On purpose: the default
    /// isn't used, it is always empty.
    void Load(const VProfileKey* key, const VUnicodeString& valueName, const char16_t* defaultText);
    /// The same, and takes over what a VProfileCapiString wrote under the name: the text then counts as changed, so
    /// that the next save puts the encoded form in its place, and the answer is true. Protected text that can't be
    /// decoded here stays in the store: the value is empty and held back.
    bool LoadTakingOver(const VProfileKey* key, const VUnicodeString& valueName);

    bool Encode(VUnicodeString& stored);
    bool Decode(const VUnicodeString& stored);
};

} // namespace ostrand
