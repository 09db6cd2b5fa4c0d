// Whole numbers as users type them and as texts show them; never by locale.
#pragma once

#include "core/strings.h"

#include <cstdint>
#include <optional>

namespace ostrand {

/// Blanks around are skipped, then a sign and digits. None for anything else, and for a number beyond 64 bits.
OSTRAND_API std::optional<int64_t> ParseWholeNumber(std::u16string_view text);
OSTRAND_API VUnicodeString NumberText(int64_t number);

} // namespace ostrand
