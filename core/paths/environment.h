// The environment's variables in 16-bit texts.
#pragma once

#include "core/strings.h"

namespace ostrand {

/// False, `value` untouched, for a variable that doesn't exist or whose value is no UTF-8.
OSTRAND_API bool GetEnvironmentText(const char* name, VUnicodeString& value);

/// Each "%NAME%" becomes the variable's value; an exact name goes ahead of one that differs in case. An unknown name
/// stays with its signs, of which the second may begin the next one. A result of 512 characters or more is given up:
/// then the text stays as it is.
OSTRAND_API VUnicodeString ExpandEnvironment(std::u16string_view text);

} // namespace ostrand
