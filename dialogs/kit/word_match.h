// How well a text has a word that somebody typed.
#pragma once

#include "core/strings.h"

namespace ostrand {

/// 0: not at all; the more the better. In falling order: a whole word of the text, the beginning of one, a part of the
/// text, a word with slips. Case doesn't matter.
OSTRAND_API int MatchWord(std::u16string_view word, std::u16string_view text);

} // namespace ostrand
