// VBlowfishString: a text with its twofold encryption under two fixed keys. The keys stand in every copy of the
// library, so it hides a text from those who read the store, and from nobody who means to know it.
//
//   stored = "u" digits              of outer( salt:4 inner( text zero padding ) salt:4 )
//   text   = 16-bit characters; padding = 1 to 8 random bytes up to a whole block
//
// Older texts begin with "l" for 32-bit characters, or with a digit for those of the 8-bit code page.
#pragma once

#include "core/random_source.h"
#include "core/strings.h"
#include "platform/export.h"

#include <string_view>

namespace ostrand {

/// The plain text itself, marked sensitive, and how it is encrypted. The order of the virtual operations is part of the
/// contract.
class OSTRAND_API VBlowfishString : public VUnicodeString {
public:
    VBlowfishString() = default;
    VBlowfishString(const VBlowfishString&) = default;
    VBlowfishString& operator=(const VBlowfishString&) = default;
    virtual ~VBlowfishString() = default;

    /// Replaces the text; null counts as empty.
    virtual VBlowfishString& operator=(const char16_t* text);
    /// Takes a reference, and gives the former one back.
    virtual void SetRandomSource(IRandomSource* source);
    virtual void SetCipherMode(unsigned cipherMode) { mode = cipherMode; }

    /// Without random bytes the salts are zeros. Costs two key schedules, as Decode does.
    VUnicodeString Encode() const;
    /// What isn't an encrypted text gives an empty one.
    void Decode(std::u16string_view stored);

    VUnicodeString encoded; ///< what was last decoded, marked sensitive
    /// Length of the keys in bytes, byte order, chained: 0: 16, big-endian, yes; 1: 32, little-endian, no; 2: 16,
    /// little-endian, yes. Any other is 0.
    unsigned mode = 0;
    VUnknownPointer<IRandomSource> random; ///< may be null
};

} // namespace ostrand
