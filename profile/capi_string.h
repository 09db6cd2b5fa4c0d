// VProfileCapiString: a text under the platform's per-user protection, in the store "CAPI:" and hexadecimal digits.
// What is protected is the text in 16-bit characters with a zero behind it, under the value's name.
#pragma once

#include "core/report.h"
#include "platform/export.h"
#include "profile/secret_value.h"

#include <string_view>

namespace ostrand {

/// Text that can't be decoded, since it is another user's or another machine's, reads as empty and is held back.
class OSTRAND_API VProfileCapiString : public VProfileSecret<VProfileCapiString, VUnicodeString> {
public:
    using VProfileSecret::operator=;

    /// Whether a stored text begins as this class writes it.
    static bool Recognises(std::u16string_view stored) { return stored.starts_with(kPrefix); }

    /// The stored text, clean; else the default, pending.
    virtual void Load(const VProfileKey* key, const VUnicodeString& valueName, const char16_t* defaultText);

    /// False where the platform can't protect the text; it then isn't written, and the value stays changed.
    bool Encode(VUnicodeString& stored);
    /// The prefix may be missing.
    bool Decode(const VUnicodeString& stored);

    /// Outcome of the last conversion: kProtectionFailed or kUnprotectionFailed with the name and the system's reason,
    /// kProtectedTextCut with the name. Each also goes to the trace log.
    VReportMessageParams report;

private:
    static constexpr std::u16string_view kPrefix = u"CAPI:";

    bool FailBecause(unsigned code, unsigned systemCode);
};

} // namespace ostrand
