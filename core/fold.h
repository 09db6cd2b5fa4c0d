// Case folding, one table for the whole library: finds, stores, product names and combo boxes all compare through it.
// Simple one-to-one folding of ASCII, Latin-1, Latin Extended-A, Greek and Cyrillic; never by locale.
#pragma once

#include "platform/export.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace ostrand {

/// Lower case of the table's letters, everything else unchanged.
OSTRAND_API char16_t FoldCase(char16_t c);
/// The inverse, for names that are shown in capitals.
OSTRAND_API char16_t UpperCase(char16_t c);

/// The whole text in lower case, as a key for tables of names.
OSTRAND_API std::u16string FoldedCase(std::u16string_view text);

/// Same texts but for case.
OSTRAND_API bool EqualNoCase(std::u16string_view a, std::u16string_view b);
/// Order of the folded code units, the common length first, then the lengths; stops at a zero in both.
OSTRAND_API int CompareNoCase(std::u16string_view a, std::u16string_view b);

/// Hash of the folded text: equal for texts that EqualNoCase calls equal.
OSTRAND_API uint64_t HashNoCase(std::u16string_view text);

} // namespace ostrand
