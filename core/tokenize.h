// Splitting a text into pieces.
#pragma once

#include "core/array.h"

#include <span>
#include <string_view>

namespace ostrand {

/// One element for each piece between separators, empty ones included; so an empty text gives one empty piece. `out`
/// is emptied first.
OSTRAND_API void Tokenize(std::u16string_view text, VStringArray& out, char16_t separator);

/// How the fuller form splits.
struct VTokenizeRules {
    /// Where several fit at one place, the first of the list counts. Empty ones are ignored.
    std::span<const std::u16string_view> separators;
    /// Two characters each, the opening and the closing one. A separator between them doesn't split.
    std::span<const std::u16string_view> quotes;
    bool dropEmpty = false;
    bool stripQuotes = false;
};

/// False if a quote is still open at the end of the text; the pieces are then those up to there.
OSTRAND_API bool Tokenize(std::u16string_view text, VStringArray& out, const VTokenizeRules& rules);

} // namespace ostrand
