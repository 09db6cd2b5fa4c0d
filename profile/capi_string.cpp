#include "profile/capi_string.h"

#include "core/hex.h"
#include "core/messages.h"
#include "core/system_texts.h"
#include "core/trace.h"
#include "platform/error_codes.h"
#include "platform/platform.h"
#include "profile/secret_text.h"

namespace ostrand {

void VProfileCapiString::Load(const VProfileKey* key, const VUnicodeString& valueName, const char16_t* defaultText)
{
    SetName(valueName);
    LoadText(key, defaultText);
}

bool VProfileCapiString::FailBecause(unsigned code, unsigned systemCode)
{
    const VUnicodeString reason = FindSystemText(systemCode);
    VTrace(u"VProfileCapiString: '%1': %2!x! %3\n", name, code, reason);
    return Fail(report, code, name, reason);
}

bool VProfileCapiString::Encode(VUnicodeString& stored)
{
    report.Succeed();
    std::vector<uint8_t> block;
    const unsigned code = Platform().dataProtection->Protect(ToUtf8(name), SecretBytes(*this), block);
    if (code != kErrorSuccess)
        return FailBecause(kProtectionFailed, code);
    stored = HexText(kPrefix, block, VHexCase::Upper);
    return true;
}

bool VProfileCapiString::Decode(const VUnicodeString& stored)
{
    report.Succeed();
    std::u16string_view digits = stored;
    if (Recognises(digits))
        digits.remove_prefix(kPrefix.size());
    if (digits.size() % 2 != 0) {
        VTrace(u"VProfileCapiString: '%1': an odd count of digits\n", name);
        return Fail(report, kProtectedTextCut, name);
    }
    VSecretBytes plain;
    if (!stored.IsEmpty()) {
        VSecretBytes block;
        const unsigned code = ReadHex(digits, block) ? Platform().dataProtection->Unprotect(ToUtf8(name), block, plain)
                                                     : kErrorInvalidData;
        if (code != kErrorSuccess)
            return FailBecause(kUnprotectionFailed, code);
    }
    Value() = SecretText(plain, VCharacterWidth::Bits16);
    return true;
}

} // namespace ostrand
