// The encodings of text files: their marks, and conversion to and from 16-bit text.
#pragma once

#include "core/strings.h"

namespace ostrand {

/// The numbers are those by which settings and callers name an encoding. 5 is reserved, for 32-bit text.
enum class VTextEncoding : int {
    Unknown = 0,  ///< decided by the mark on reading; written as Utf16
    CodePage = 1, ///< 8-bit, core/code_page.h; the only one without a mark
    Utf8 = 2,
    Utf16 = 3,       ///< little-endian
    Utf16Swapped = 4 ///< big-endian
};

/// The bytes at the start of a file of this encoding; none for CodePage.
OSTRAND_API std::string_view MarkOf(VTextEncoding encoding);
/// What the first bytes of a file say; CodePage when no mark fits.
OSTRAND_API VTextEncoding DetectEncoding(std::string_view start);

/// Appends the text of one block to `out`. Returns how many bytes were used: what is left is the beginning of a
/// character that the next block ends. UTF-8 is read in sequences of 1 to 3 bytes; a lead byte that promises more, or a
/// sequence that is none, ends the decoding, and the rest of the block counts as used.
// On purpose: no character outside the basic plane is read. Held by TextFile.ABadSequenceEndsItsBlockAlone.
OSTRAND_API size_t DecodeText(VTextEncoding encoding, std::string_view bytes, std::u16string& out);

/// What the encoding can't hold becomes "?".
OSTRAND_API std::string EncodeText(VTextEncoding encoding, std::u16string_view text);

} // namespace ostrand
