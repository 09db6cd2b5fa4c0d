// English texts of the platform's failures, for reports that carry a platform code.
#pragma once

#include "platform/export.h"

namespace ostrand {

/// The text of a code of platform/error_codes.h; empty for success, null for a code that has none here.
OSTRAND_API const char16_t* FindSystemText(unsigned code);

} // namespace ostrand
