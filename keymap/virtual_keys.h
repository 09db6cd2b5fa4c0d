// Keys by name: the virtual-key codes, as the platform that they come from publishes them.
#pragma once

#include "core/strings.h"

namespace ostrand {

/// By exact case; -1 for an unknown name.
OSTRAND_API int VirtualKeyCodeOf(std::u16string_view name);

/// A name, by exact case, or a number: it begins with a digit and is hexadecimal behind "0x", octal behind "0", else
/// decimal; what follows the digits is ignored. -1 for an unknown name and a number above 255.
OSTRAND_API int ParseVirtualKey(std::u16string_view field);

/// The name of a code below 256; for one that has none a number in the form that ParseVirtualKey takes: "0xDC".
OSTRAND_API VUnicodeString VirtualKeyName(unsigned code);

} // namespace ostrand
