// Octal numbers as users type them for file permissions and masks.
#pragma once

#include "core/report.h"

#include <string_view>

namespace ostrand {

/// An empty text is 0. On failure `*out` stays, and the report gets the first of: kOctalInvalidDigit for a character
/// outside 0 to 7, kOctalOverflow beyond 32 bits, kOctalAboveMaximum; a success leaves the report alone.
[[nodiscard]] OSTRAND_API bool ParseOctal(std::u16string_view text, unsigned maximum, unsigned* out,
                                          IReportMessageParams& report);

} // namespace ostrand
