// Moments as people and programs exchange them: "2026-11-24T17:52:02.1234567Z", ISO 8601 in UTC with all its digits.
#pragma once

#include "core/calendar.h"
#include "platform/export.h"

#include <string>
#include <string_view>

namespace ostrand {

/// Empty for a moment behind the year 9999.
OSTRAND_API std::string IsoTime(VFileTime time);
/// Exactly the form that IsoTime gives. `time` is untouched on failure.
bool ParseIsoTime(std::string_view text, VFileTime& time);

/// From nanoseconds since 1970, as files have them.
VFileTime TimeOfFile(int64_t nanoseconds);

} // namespace ostrand
