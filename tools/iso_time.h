// Moments as a command line takes them.
#pragma once

#include "core/calendar.h"

#include <string_view>

namespace ostrand::tool {

/// "2026-03-29", "2026-03-29T01:00", "2026-03-29 01:00:30.250Z"; always UTC. False, `out` untouched, for anything else
/// and for a date that doesn't exist.
bool ReadIsoTime(std::string_view word, VCalendarTime& out);

} // namespace ostrand::tool
