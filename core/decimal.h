// Numbers as decimal digits.
#pragma once

#include "core/strings.h"

#include <cstdint>

namespace ostrand {

OSTRAND_API VUnicodeString DecimalText(uint64_t number);

} // namespace ostrand
