// VProfileBlowfishString: a text that the store holds encrypted as profile/blowfish_string.h tells.
#pragma once

#include "platform/export.h"
#include "profile/blowfish_string.h"
#include "profile/secret_value.h"

namespace ostrand {

extern template class OSTRAND_API VProfile2<VBlowfishString, VProfileSz>;

class OSTRAND_API VProfileBlowfishString : public VProfileSecret<VProfileBlowfishString, VBlowfishString> {
public:
    /// Both texts take a reference to the source.
    explicit VProfileBlowfishString(IRandomSource* source = &RandomSource());
    using VProfileSecret::operator=;
    VProfileBlowfishString& operator=(const char16_t* text) override;

    /// The stored text, else the default. On purpose: clean in both cases, so this default doesn't go out with the next
    /// save.
    virtual void Load(const VProfileKey* key, const VUnicodeString& valueName, const char16_t* defaultText);
    virtual void LoadValue(const VProfileKey* key, const char16_t* defaultText);
    void SetRandomSource(IRandomSource* source) override;
    void SetCipherMode(unsigned cipherMode) override;

    bool Encode(VUnicodeString& stored);
    bool Decode(const VUnicodeString& stored);
};

} // namespace ostrand
